#include "win32/sound/WindowsMediaPlayer.h"

#include "win32/system/Handle.h"
#include "win32/system/Utf16.h"

#include <algorithm>
#include <wmp.h>

namespace quillon {

namespace {

/// The cycle sets an address that does not play anew every second; no server is to suffer from that.
constexpr ULONGLONG GrudgeMs = 60'000;

/// The control passes through states that look like failure on its way to the first sound.
constexpr ULONGLONG PatienceMs = 10'000;

/// Whether there is nothing in the control that it could play.
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

/// What it is given plays by itself, and nothing opens boxes or web pages. A control that knows no such
/// setting does neither.
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
    if (shown_) return *shown_;
    const PlayState state = ControlState();
    if (url_.empty() || !(IsEmpty(state) || IsAtRest(state))) return state;
    const bool has_failed = events_ && events_->HasFailed();
    if (has_failed ? state != Paused : IsEmpty(state) && GetTickCount64() >= patient_until_ms_) GiveUp();
    if (shown_) return *shown_;
    return IsEmpty(state) ? Transitioning : state;
}

void WindowsMediaPlayer::GiveUp() {
    given_up_ = url_;
    not_before_ms_ = GetTickCount64() + GrudgeMs;
    shown_ = Ready;
}

void WindowsMediaPlayer::SetUrl(const std::string& url) {
    State(); // may give up the address before
    url_ = url;
    Open();
}

/// Also ends what plays, when the address is empty or may not be asked for.
void WindowsMediaPlayer::Open() {
    const bool held = IsHeld();
    if (events_) events_->ForgetFailure();
    const bool taken = core_ && SUCCEEDED(core_->put_URL(ComText(held ? L"" : Wide(url_)).Get()));
    patient_until_ms_ = GetTickCount64() + PatienceMs;
    shown_.reset();
    if (!url_.empty() && (held || !taken)) shown_ = Ready;
}

bool WindowsMediaPlayer::IsHeld() const {
    return url_ == given_up_ && GetTickCount64() < not_before_ms_;
}

/// Where nothing is open the control is given the address anew; told to play there, it does nothing or crashes,
/// depending on its version.
void WindowsMediaPlayer::Play() {
    if (url_.empty() || !controls_) return;
    const PlayState state = State();
    if (state != Ready && !IsAtRest(state)) return;
    if (state == Ready || IsEmpty(ControlState())) return Open();
    shown_.reset();
    controls_->play();
}

/// A live stream cannot be paused, and nothing can while it connects: it is stopped and shown as paused.
void WindowsMediaPlayer::Pause() {
    if (url_.empty() || !controls_ || IsAtRest(State())) return;
    if (IsAvailable(L"pause") && SUCCEEDED(controls_->pause())) return;
    controls_->stop();
    shown_ = Paused;
}

void WindowsMediaPlayer::Stop() {
    if (controls_) controls_->stop();
    shown_ = Stopped;
}

void WindowsMediaPlayer::SetVolume(int volume) {
    if (settings_) settings_->put_volume(std::clamp(volume, 0, 100));
}

void WindowsMediaPlayer::Reload() {
    const PlayState state = State();
    if (url_.empty() || state == Paused || state == Stopped) return;
    given_up_.clear();
    Open();
}

bool WindowsMediaPlayer::IsAvailable(const wchar_t* command) {
    VARIANT_BOOL available = VARIANT_FALSE;
    return SUCCEEDED(controls_->get_isAvailable(ComText(command).Get(), &available)) &&
           available != VARIANT_FALSE;
}

} // namespace quillon
