#include "win32/sound/WindowsMediaPlayer.h"

#include "win32/system/Handle.h"
#include "win32/system/Utf16.h"

#include <algorithm>
#include <wmp.h>

namespace quillon {

namespace {

/// On its way to the first sound the control passes through states that look like a failure.
constexpr std::chrono::seconds LongestStart{10};

RetrySchedule::Time Now() {
    return RetrySchedule::Time(GetTickCount64());
}

/// Whether the control has nothing loaded.
bool IsEmpty(PlayState state) {
    return state == Ready || state == Undefined;
}

bool IsAtRest(PlayState state) {
    return state == Stopped || state == Paused || state == MediaEnded;
}

class ComText {
  public:
    explicit ComText(const std::wstring& text) : text_(SysAllocString(text.c_str())) {}
    BSTR Get() const { return text_.Get(); }

  private:
    static void Free(BSTR text) { SysFreeString(text); }

    Handle<BSTR, Free> text_;
};

} // namespace

WindowsMediaPlayer::WindowsMediaPlayer() {
    if (FAILED(CoCreateInstance(__uuidof(::WindowsMediaPlayer), nullptr, CLSCTX_INPROC_SERVER,
                                __uuidof(IWMPCore), reinterpret_cast<void**>(core_.Out()))))
        return;
    core_->get_controls(controls_.Out());
    core_->get_settings(settings_.Out());
    events_ = ControlEvents::Attach(core_.Get());
    if (settings_) Prepare();
}

/// Playing starts by itself, and nothing opens message boxes or web pages. A control that lacks one of these
/// settings does not need it.
void WindowsMediaPlayer::Prepare() {
    settings_->put_autoStart(VARIANT_TRUE);
    settings_->put_enableErrorDialogs(VARIANT_FALSE);
    settings_->put_invokeURLs(VARIANT_FALSE);
}

WindowsMediaPlayer::~WindowsMediaPlayer() {
    if (events_) events_->Detach();
    if (core_) core_->close();
}

bool WindowsMediaPlayer::Exists() const {
    return static_cast<bool>(core_);
}

bool WindowsMediaPlayer::Answers() {
    return controls_ && settings_ && ReadState();
}

std::optional<PlayState> WindowsMediaPlayer::ReadState() {
    WMPPlayState state = wmppsUndefined;
    if (!core_ || FAILED(core_->get_playState(&state))) return {};
    return static_cast<PlayState>(state);
}

PlayState WindowsMediaPlayer::ControlState() {
    return ReadState().value_or(events_ ? events_->State() : Undefined);
}

PlayState WindowsMediaPlayer::State() {
    if (override_) return *override_;
    const PlayState state = ControlState();
    if (url_.empty() || !(IsEmpty(state) || IsAtRest(state))) return state;
    const bool has_failed = events_ && events_->HasFailed();
    const bool has_begun = events_ && events_->HasPlayed();
    const bool is_on_its_way = IsEmpty(state) || (state == Stopped && !has_begun);
    if (has_failed ? state != Paused : is_on_its_way && Now() >= first_sound_by_) GiveUp();
    if (override_) return *override_;
    return is_on_its_way ? Transitioning : state;
}

void WindowsMediaPlayer::GiveUp() {
    retries_.GiveUp(url_, Now());
    override_ = Ready;
}

void WindowsMediaPlayer::SetUrl(const std::string& url) {
    State(); // may give up the previous address
    url_ = url;
    Open();
}

/// If the address is empty or cools down, this only ends what plays.
void WindowsMediaPlayer::Open() {
    const bool cools_down = Now() < retries_.NotBefore(url_);
    if (events_) events_->Forget();
    const bool taken = core_ && SUCCEEDED(core_->put_URL(ComText(cools_down ? L"" : Wide(url_)).Get()));
    first_sound_by_ = Now() + LongestStart;
    override_.reset();
    if (!url_.empty() && (cools_down || !taken)) override_ = Ready;
}

/// With nothing loaded the address is set again instead: play would do nothing, or crash, depending on the
/// version.
void WindowsMediaPlayer::Play() {
    if (url_.empty() || !controls_) return;
    const PlayState state = State();
    if (state != Ready && !IsAtRest(state)) return;
    if (state == Ready || IsEmpty(ControlState())) return Open();
    override_.reset();
    controls_->play();
}

/// A live stream, or anything that is still connecting, cannot be paused: it is stopped and shown as paused.
void WindowsMediaPlayer::Pause() {
    if (url_.empty() || !controls_ || IsAtRest(State())) return;
    if (IsAvailable(L"pause") && SUCCEEDED(controls_->pause())) return;
    controls_->stop();
    override_ = Paused;
}

void WindowsMediaPlayer::Stop() {
    if (controls_) controls_->stop();
    override_ = Stopped;
}

void WindowsMediaPlayer::SetVolume(int volume) {
    if (settings_) settings_->put_volume(std::clamp(volume, 0, 100));
}

void WindowsMediaPlayer::Reload() {
    const PlayState state = State();
    if (url_.empty() || state == Paused || state == Stopped) return;
    retries_.Forgive(url_);
    Open();
}

bool WindowsMediaPlayer::IsAvailable(const wchar_t* command) {
    VARIANT_BOOL available = VARIANT_FALSE;
    return SUCCEEDED(controls_->get_isAvailable(ComText(command).Get(), &available)) &&
           available != VARIANT_FALSE;
}

} // namespace quillon
