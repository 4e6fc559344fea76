#include "player/Session.h"

#include "player/FileSource.h"
#include "player/HttpStream.h"
#include "player/Limits.h"

#include <algorithm>

namespace quillon {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

namespace {

constexpr auto EndedShownFor = 100ms;

/// The rest of a playlist is skipped after this many entries that cannot be played.
constexpr int MostFailures = 30;

SilenceReason ProblemAfter(Outcome outcome, const Attempt& attempt) {
    if (outcome == Outcome::NoDevice) return {SilenceCause::NoSoundDevice, ""};
    if (outcome == Outcome::Ended || outcome > Outcome::NoDevice) return {};
    return attempt.Problem();
}

} // namespace

Session::Session(std::string url, std::string user_agent, FileServers servers, int volume,
                 std::unique_ptr<PlayerSystem> system, std::shared_ptr<RetrySchedule> retries)
    : url_(std::move(url)),
      user_agent_(std::move(user_agent)),
      servers_(std::move(servers)),
      system_(std::move(system)),
      retries_(std::move(retries)) {
    controls_.volume = volume;
    const auto now = system_->Now();
    retries_->Begin(url_, now);
    if (now < retries_->NotBefore(url_)) state_ = Ready;
}

void Session::Run() {
    PlayState last = Ready;
    try {
        last = PlayUntilDone();
    } catch (...) {
        last = Ready; // out of memory, or an invalid path
    }
    ShowTitle({});
    state_ = last;
    has_ended_ = true;
    if (last != MediaEnded) return;
    const auto until = system_->Now() + EndedShownFor;
    while (!controls_.cancelled && system_->Now() < until) system_->Wait(EndedShownFor);
    state_ = Stopped;
}

PlayState Session::PlayUntilDone() {
    if (!AwaitCoolDown()) return Stopped;
    while (!controls_.cancelled) {
        state_ = Transitioning;
        const Outcome outcome = PlayOnce();
        if (outcome == Outcome::Cancelled) break;
        UpdateRetries([this](RetrySchedule& retries) { retries.SetProblem(url_, problem_); });
        outcome_ = outcome;
        if (outcome == Outcome::Ended) return MediaEnded;
        if (!is_online_ || !AwaitNextTry(outcome)) return Ready;
    }
    return Stopped;
}

/// False if cancelled. An address that was given up stays so until it plays, however often it is started.
bool Session::AwaitCoolDown() {
    const auto not_before = retries_->NotBefore(url_);
    if (not_before <= system_->Now()) return true;
    WaitUntil(not_before, Ready);
    UpdateRetries([this](RetrySchedule& retries) { retries.GiveUp(url_, system_->Now()); });
    return !controls_.cancelled;
}

/// Goes on with the next entry of a playlist when one has ended or cannot be played, but not when one drops
/// that was heard. The outcome's problem is left in `problem_`.
Outcome Session::PlayOnce() {
    PlaylistWalk walk(url_, servers_);
    Outcome result = Outcome::Refused;
    SilenceReason problem; // of `result`
    int failures = 0;
    played_ = 0ms;
    while (const auto stop = walk.Next()) {
        const auto played_before = played_;
        const Outcome outcome = Play(*stop, walk);
        if (outcome == Outcome::Playlist) continue;
        if (outcome <= result) problem = problem_;
        if (outcome > Outcome::Refused || (outcome != Outcome::Ended && played_ > played_before))
            return outcome;
        result = std::min(result, outcome);
        if (outcome != Outcome::Ended && ++failures == MostFailures) break;
    }
    problem_ = problem;
    return result;
}

/// Outcome::Playlist if the address is a playlist that the walk goes on with.
Outcome Session::Play(const PlaylistWalk::Stop& stop, PlaylistWalk& walk) {
    auto source = Open(stop);
    if (!source) return Unplayable(stop);
    Attempt attempt(std::move(source), controls_, *system_);
    const Outcome outcome = Drive(attempt, stop.origin.encrypted);
    played_ += attempt.Played();
    problem_ = ProblemAfter(outcome, attempt);
    if (outcome != Outcome::Playlist) return outcome;
    problem_ = walk.Enter(attempt.Playlist(), attempt.Source().Address(), attempt.Source().Onward());
    return problem_ ? Outcome::NotAudio : Outcome::Playlist;
}

Outcome Session::Drive(Attempt& attempt, bool expects_encryption) {
    while (!controls_.cancelled) {
        const auto outcome = attempt.Step();
        is_not_encrypted_ = expects_encryption && !outcome && attempt.State() == Playing &&
                            attempt.Source().Address().starts_with("http://");
        if (outcome) return *outcome;
        const bool starts = state_ != Playing && attempt.State() == Playing;
        state_ = attempt.State();
        if (starts) UpdateRetries([this](RetrySchedule& retries) { retries.Forgive(url_); });
        ShowTitle(attempt.Source().Title());
        system_->Wait(attempt.HasMoreToRead() ? 0ms : PollInterval);
    }
    return Outcome::Cancelled;
}

Outcome Session::Unplayable(const PlaylistWalk::Stop& stop) {
    problem_ = stop.problem;
    if (problem_) return Outcome::Refused;
    const bool is_media = IsMediaProtocol(stop.entry);
    problem_ = {is_media ? SilenceCause::UnplayableProtocol : SilenceCause::BadAddress, ""};
    return is_media ? Outcome::Unsupported : Outcome::Refused;
}

std::unique_ptr<ByteSource> Session::Open(const PlaylistWalk::Stop& stop) {
    if (!stop.address || stop.problem) return nullptr;
    if (!IsStreamAddress(*stop.address)) return std::make_unique<FileSource>(*stop.address);
    is_online_ = true;
    const auto parsed = ParseAddress(*stop.address);
    if (!parsed) return nullptr;
    return std::make_unique<HttpStream>(*parsed, user_agent_, *system_, stop.origin);
}

/// False if there is to be no next try.
bool Session::AwaitNextTry(Outcome outcome) {
    std::optional<milliseconds> next;
    UpdateRetries(
        [&](RetrySchedule& retries) { next = retries.NextTry(url_, outcome, played_, system_->Now()); });
    if (next) WaitUntil(*next, outcome == Outcome::NoDevice ? Ready : Transitioning);
    return next.has_value();
}

/// Calls with the schedule, unless cancelled: it then belongs to the session that replaces this one.
template <typename Call>
void Session::UpdateRetries(Call call) {
    const std::lock_guard lock(mutex_);
    if (!controls_.cancelled) call(*retries_);
}

/// Waits on while paused: nobody would hear the next try.
void Session::WaitUntil(milliseconds time, PlayState shown) {
    ShowTitle({});
    state_ = shown;
    waits_until_ = time;
    is_waiting_ = true;
    while (!controls_.cancelled && (controls_.paused || system_->Now() < time)) system_->Wait(PollInterval);
    is_waiting_ = false;
}

std::optional<milliseconds> Session::TimeToNextTry() const {
    if (!is_waiting_ || controls_.paused) return {};
    return std::max(waits_until_.load() - system_->Now(), 0ms);
}

void Session::Cancel() {
    {
        const std::lock_guard lock(mutex_);
        controls_.cancelled = true;
    }
    system_->Wake();
}

void Session::Pause(milliseconds ramp) {
    controls_.ramp = ramp;
    controls_.paused = true;
    system_->Wake();
}

void Session::Resume() {
    controls_.paused = false;
    system_->Wake();
}

void Session::SetVolume(int volume) {
    controls_.volume = volume;
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
