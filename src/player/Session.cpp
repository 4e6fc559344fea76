#include "player/Session.h"

#include "player/FileSource.h"
#include "player/HttpStream.h"
#include "player/Limits.h"
#include "player/PlaylistWalk.h"

#include <algorithm>

namespace quillon {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

namespace {

constexpr auto EndedShownFor = 100ms;

/// The rest of a playlist is skipped after this many entries that cannot be played.
constexpr int MostFailures = 30;

} // namespace

Session::Session(std::string url, std::string user_agent, int volume, std::unique_ptr<PlayerSystem> system,
                 std::shared_ptr<RetrySchedule> retries)
    : url_(std::move(url)),
      user_agent_(std::move(user_agent)),
      system_(std::move(system)),
      retries_(std::move(retries)) {
    wishes_.volume = volume;
    const auto now = system_->Now();
    retries_->Begin(url_, now);
    if (now < retries_->NotBefore(url_)) state_ = Ready;
}

void Session::Run() {
    PlayState last = Ready;
    try {
        last = PlayUntilDone();
    } catch (...) {
        last = Ready; // out of memory, or a path that is none
    }
    ShowTitle({});
    state_ = last;
    has_ended_ = true;
    if (last != MediaEnded) return;
    const auto until = system_->Now() + EndedShownFor;
    while (!wishes_.cancelled && system_->Now() < until) system_->Wait(EndedShownFor);
    state_ = Stopped;
}

PlayState Session::PlayUntilDone() {
    if (!AwaitCoolDown()) return Stopped;
    while (!wishes_.cancelled) {
        state_ = Transitioning;
        const Ending ending = PlayOnce();
        if (ending == Ending::Cancelled) break;
        if (ending == Ending::Ended) return MediaEnded;
        if (!is_online_ || !AwaitNextTry(ending)) return Ready;
    }
    return Stopped;
}

/// False if cancelled. An address that was given up stays so until it plays, however often it is started.
bool Session::AwaitCoolDown() {
    const auto not_before = retries_->NotBefore(url_);
    if (not_before <= system_->Now()) return true;
    WaitUntil(not_before, Ready);
    Tell([this](RetrySchedule& retries) { retries.GiveUp(url_, system_->Now()); });
    return !wishes_.cancelled;
}

/// Goes on with the next entry of a playlist when one has ended or cannot be played, but not when one drops
/// that was heard.
Ending Session::PlayOnce() {
    PlaylistWalk walk(url_);
    Ending result = Ending::Refused;
    int failures = 0;
    heard_ = 0ms;
    while (const auto stop = walk.Next()) {
        const auto heard_before = heard_;
        const Ending ending = stop->address ? Play(*stop->address, walk) : Ending::Refused;
        if (ending == Ending::Playlist) continue;
        if (ending > Ending::Refused || (ending != Ending::Ended && heard_ > heard_before)) return ending;
        result = std::min(result, ending);
        if (ending != Ending::Ended && ++failures == MostFailures) break;
    }
    return result;
}

/// Ending::Playlist if the address is a playlist that the walk goes on with.
Ending Session::Play(const std::string& address, PlaylistWalk& walk) {
    auto source = Open(address);
    if (!source) return Ending::Refused;
    Attempt attempt(std::move(source), wishes_, *system_);
    const Ending ending = Drive(attempt);
    heard_ += attempt.Heard();
    if (ending != Ending::Playlist) return ending;
    const auto found = walk.Enter(attempt.Playlist(), attempt.Source().Address());
    return found == PlaylistWalk::Found::Stops ? Ending::Playlist : Ending::NotAudio;
}

Ending Session::Drive(Attempt& attempt) {
    while (!wishes_.cancelled) {
        if (const auto ending = attempt.Step()) return *ending;
        const bool starts = state_ != Playing && attempt.State() == Playing;
        state_ = attempt.State();
        if (starts) Tell([this](RetrySchedule& retries) { retries.Forgive(url_); });
        ShowTitle(attempt.Source().Title());
        system_->Wait(PollInterval);
    }
    return Ending::Cancelled;
}

std::unique_ptr<ByteSource> Session::Open(const std::string& address) {
    if (!IsStreamAddress(address)) return std::make_unique<FileSource>(address);
    is_online_ = true;
    const auto parsed = ParseAddress(address);
    if (!parsed) return nullptr;
    return std::make_unique<HttpStream>(*parsed, user_agent_, *system_);
}

/// False if there is to be no next try.
bool Session::AwaitNextTry(Ending ending) {
    std::optional<milliseconds> next;
    Tell([&](RetrySchedule& retries) { next = retries.NextTry(url_, ending, heard_, system_->Now()); });
    if (next) WaitUntil(*next, ending == Ending::NoDevice ? Ready : Transitioning);
    return next.has_value();
}

/// Calls with the schedule, unless cancelled: it then belongs to the session that replaces this one.
template <typename Call>
void Session::Tell(Call call) {
    const std::lock_guard lock(mutex_);
    if (!wishes_.cancelled) call(*retries_);
}

/// Longer when a pause is on: nobody would hear what comes.
void Session::WaitUntil(milliseconds moment, PlayState shown) {
    ShowTitle({});
    state_ = shown;
    is_waiting_ = true;
    while (!wishes_.cancelled && (wishes_.paused || system_->Now() < moment)) system_->Wait(PollInterval);
    is_waiting_ = false;
}

void Session::Cancel() {
    {
        const std::lock_guard lock(mutex_);
        wishes_.cancelled = true;
    }
    system_->Wake();
}

void Session::Pause() {
    wishes_.paused = true;
    system_->Wake();
}

void Session::Resume() {
    wishes_.paused = false;
    system_->Wake();
}

void Session::SetVolume(int volume) {
    wishes_.volume = volume;
}

std::string Session::Title() const {
    const std::lock_guard lock(mutex_);
    return title_;
}

void Session::ShowTitle(const std::string& title) {
    const std::lock_guard lock(mutex_);
    if (title_ != title) title_ = title;
}

} // namespace quillon
