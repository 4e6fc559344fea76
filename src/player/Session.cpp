#include "player/Session.h"

#include "player/FileSource.h"
#include "player/HttpStream.h"
#include "player/Playlists.h"

#include <algorithm>

namespace quillon {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

namespace {

constexpr auto LongestSleep = 100ms;
constexpr auto EndedShownFor = 100ms;

/// A playlist whose entries all fail costs no more than so many tries.
constexpr int MostTries = 30;

} // namespace

Session::Session(std::string url, std::string user_agent, int volume, std::unique_ptr<PlayerSystem> system,
                 milliseconds not_before)
    : url_(std::move(url)),
      user_agent_(std::move(user_agent)),
      system_(std::move(system)),
      not_before_(not_before),
      policy_(static_cast<std::uint32_t>(system_->Now().count())) {
    wishes_.volume = volume;
    if (system_->Now() < not_before) state_ = Ready;
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
    if (not_before_.load() > system_->Now()) {
        WaitUntil(not_before_, Ready);
        if (wishes_.cancelled) return Stopped; // and the moment stands, for nothing was asked
        not_before_ = system_->Now() + Grudge; // for what comes of it is not known yet
    }
    while (!wishes_.cancelled) {
        heard_ = 0ms;
        tries_left_ = MostTries;
        state_ = Transitioning;
        const Ending ending = PlayAddress(url_, 0);
        if (ending == Ending::Cancelled) break;
        if (ending == Ending::Ended) return MediaEnded;
        if (!is_online_ || !AwaitNextTry(ending)) return Ready;
    }
    return Stopped;
}

Ending Session::PlayAddress(const std::string& address, int depth) {
    std::string playlist;
    std::string from;
    {
        auto source = Open(address);
        if (!source) return Ending::Refused;
        Attempt attempt(std::move(source), wishes_, *system_);
        const Ending ending = Drive(attempt);
        heard_ += attempt.Heard();
        if (ending != Ending::Playlist) return ending;
        playlist = attempt.Playlist();
        from = attempt.Source().Address();
    }
    return depth < DeepestPlaylist ? PlayEntries(playlist, from, depth + 1) : Ending::NotAudio;
}

/// Goes on with the next entry when one has ended or cannot be had, but not when one drops that was heard.
Ending Session::PlayEntries(const std::string& playlist, const std::string& from, int depth) {
    const Entries entries = ReadPlaylist(playlist, from);
    Ending result = entries.empty() ? Ending::NotAudio : Ending::Refused;
    for (const std::string& entry : entries) {
        const auto address = ResolveEntry(from, entry);
        const auto heard_before = heard_;
        const Ending ending = address ? PlayAddress(*address, depth) : Ending::Refused;
        if (ending > Ending::Refused || (ending != Ending::Ended && heard_ > heard_before)) return ending;
        result = std::min(result, ending);
        if (ending != Ending::Ended && --tries_left_ <= 0) break;
    }
    return result;
}

Ending Session::Drive(Attempt& attempt) {
    while (!wishes_.cancelled) {
        if (const auto ending = attempt.Step()) return *ending;
        state_ = attempt.State();
        if (attempt.State() == Playing) not_before_ = 0ms;
        ShowTitle(attempt.Source().Title());
        system_->Wait(LongestSleep);
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

/// False when there is to be no next try.
bool Session::AwaitNextTry(Ending ending) {
    const auto now = system_->Now();
    if (ending == Ending::PausedLong) {
        WaitUntil(now, Transitioning);
        return true;
    }
    const auto wait = policy_.WaitAfter(ending, heard_);
    if (wait && ending != Ending::NoDevice) {
        not_before_ = 0ms;
        WaitUntil(now + *wait, Transitioning);
        return true;
    }
    not_before_ = now + wait.value_or(Grudge);
    if (wait) WaitUntil(not_before_, Ready);
    return wait.has_value();
}

/// Longer when a pause is on: nobody would hear what comes.
void Session::WaitUntil(milliseconds moment, PlayState shown) {
    ShowTitle({});
    state_ = shown;
    is_waiting_ = true;
    while (!wishes_.cancelled && (wishes_.paused || system_->Now() < moment)) system_->Wait(LongestSleep);
    is_waiting_ = false;
}

void Session::Cancel() {
    wishes_.cancelled = true;
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
    const std::lock_guard lock(title_mutex_);
    return title_;
}

void Session::ShowTitle(const std::string& title) {
    const std::lock_guard lock(title_mutex_);
    if (title_ != title) title_ = title;
}

} // namespace quillon
