#include "player/Attempt.h"

#include "player/Limits.h"
#include "player/Playlists.h"

#include <algorithm>
#include <array>

namespace quillon {

using namespace std::chrono_literals;

namespace {

constexpr auto FirstPrebuffer = 120ms;
constexpr auto LongestPrebuffer = 2000ms;
constexpr auto BufferWhilePaused = 2s;

/// Reads in one step. A server may send faster than the data is used, for ever if it makes no sound.
constexpr int MostReads = 65536 / ReadSize;

/// What a server and the network may hold back for a live stream, in bytes.
constexpr std::size_t LargestBacklog = 512 * 1024;

/// An MP3 stream has had a complete frame by then.
constexpr std::size_t EnoughForFrame = 4096;

} // namespace

Attempt::Attempt(std::unique_ptr<ByteSource> source, const TransportControls& controls, PlayerSystem& system)
    : source_(std::move(source)),
      controls_(controls),
      system_(system),
      reader_(system, IsStreamAddress(source_->Address())),
      speaker_(system),
      prebuffer_(FirstPrebuffer) {}

std::chrono::milliseconds Attempt::Played() const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(played_);
}

std::optional<Outcome> Attempt::Step() {
    ApplyPause();
    if (IsPausedTooLong()) return Outcome::PausedTooLong;
    FillQueue();
    if (outcome_ == Outcome::Playlist || outcome_ == Outcome::NotAudio || outcome_ == Outcome::Unsupported)
        return outcome_;
    if (!paused_since_) return Play();
    return outcome_ == Outcome::Ended ? std::nullopt : outcome_; // a paused file keeps its last sound
}

void Attempt::ApplyPause() {
    const bool paused = controls_.paused;
    if (paused == paused_since_.has_value()) return;
    paused_since_ = paused ? std::optional(system_.Now()) : std::nullopt;
    buffering_since_.reset();
    received_in_pause_ = 0;
    read_after_ = {};
    speaker_.SetPaused(paused, controls_.ramp);
    if (!source_->IsLive() || !paused) return;
    speaker_.Close();
    is_playing_ = false;
}

bool Attempt::IsPausedTooLong() const {
    return IsPausedLive() && system_.Now() - *paused_since_ >= PauseTimeout;
}

bool Attempt::IsPausedLive() const {
    return paused_since_ && source_->IsLive();
}

/// A paused live stream is read on, so that no old sound queues up at the server: its backlog at once, the rest
/// at the pace at which it would have played. What sends faster is a file without a length, which must not be
/// downloaded.
bool Attempt::NeedsBytes() const {
    if (controls_.cancelled || outcome_) return false;
    return queue_.Length() < prebuffer_ || (IsPausedLive() && controls_.paused && system_.Now() >= read_after_);
}

void Attempt::FillQueue() {
    std::array<std::uint8_t, ReadSize> bytes;
    has_more_to_read_ = false;
    for (int reads = 0; NeedsBytes(); ++reads) {
        has_more_to_read_ = reads == MostReads;
        if (has_more_to_read_) return;
        const IoResult result = source_->Read(bytes);
        if (result.status != IoStatus::Ok) return TakeStatus(result.status);
        TakeData(ByteView(bytes).first(result.count));
    }
    stalled_since_.reset();
}

void Attempt::TakeData(ByteView bytes) {
    if (bytes.empty()) return;
    stalled_since_.reset();
    if (state_ == Transitioning) state_ = Buffering;
    if (received_ == 0 && source_->AnnouncesPlaylist()) reader_.ExpectPlaylist();
    received_ += bytes.size();
    const auto length_before = queue_.Length();
    if (!reader_.Feed(bytes, queue_))
        Finish(reader_.Problem().Cause == SilenceCause::NoDecoder ? Outcome::Unsupported : Outcome::NotAudio);
    if (IsPausedLive()) DropOldSound(bytes.size(), queue_.Length() - length_before);
}

void Attempt::DropOldSound(std::size_t bytes, std::chrono::microseconds sound) {
    received_in_pause_ += bytes;
    read_after_ = received_in_pause_ < LargestBacklog ? system_.Now() : read_after_ + sound;
    queue_.KeepLatest(BufferWhilePaused);
}

/// Handles a read that gave no data.
void Attempt::TakeStatus(IoStatus status) {
    switch (status) {
    case IoStatus::EndOfStream:
        return Finish(reader_.HasFoundSound() ? Outcome::Ended : Outcome::NotAudio);
    case IoStatus::Failed:
        return Finish(reader_.HasFoundSound() || received_ < EnoughForFrame ? Outcome::Dropped
                                                                            : Outcome::NotAudio);
    case IoStatus::NotAudio:
        return Finish(Outcome::NotAudio);
    case IoStatus::Refused:
        return Finish(Outcome::Refused);
    case IoStatus::Unsupported:
        return Finish(Outcome::Unsupported);
    case IoStatus::WouldBlock:
        if (state_ == Transitioning) state_ = Buffering;
        break;
    default:
        break;
    }
    if (HasLasted(stalled_since_, StallTimeout)) GiveUp(SilenceCause::Stalled);
}

void Attempt::GiveUp(SilenceCause cause) {
    given_up_ = cause;
    queue_ = {}; // too little to start with, and stale by now
    Finish(Outcome::Dropped);
}

/// A playlist is used however its transfer ended.
void Attempt::Finish(Outcome outcome) {
    const bool is_playlist = reader_.IsPlaylist() && outcome != Outcome::Refused;
    outcome_ = is_playlist && reader_.Playlist().size() <= LongestPlaylist ? Outcome::Playlist : outcome;
}

SilenceReason Attempt::Problem() const {
    if (SilenceReason problem = source_->Problem()) return problem;
    if (SilenceReason problem = reader_.Problem()) return problem;
    if (given_up_ != SilenceCause::None) return {given_up_, ""};
    return {outcome_ == Outcome::NotAudio ? SilenceCause::NotPlayable : SilenceCause::Dropped, ""};
}

/// Whether a condition that began at `since` has lasted for `length`; sets `since` if it begins now.
bool Attempt::HasLasted(std::optional<std::chrono::milliseconds>& since, std::chrono::milliseconds length) {
    const auto now = system_.Now();
    if (!since) since = now;
    return now - *since >= length;
}

std::optional<Outcome> Attempt::Play() {
    if (IsPrebuffering()) {
        if (state_ != Transitioning) state_ = Buffering;
        if (HasLasted(buffering_since_, BufferingTimeout)) GiveUp(SilenceCause::TooSlow);
        return {};
    }
    buffering_since_.reset();
    if (!FeedOutput()) return Outcome::NoDevice;
    if (speaker_.IsIdle()) return AfterUnderrun();
    if (!speaker_.CheckProgress()) return Outcome::NoDevice;
    state_ = Playing;
    return {};
}

bool Attempt::IsPrebuffering() const {
    return !is_playing_ && !outcome_ && queue_.Length() < prebuffer_;
}

/// An unsteady stream needs a longer buffer the next time.
std::optional<Outcome> Attempt::AfterUnderrun() {
    if (outcome_ && queue_.Empty()) return outcome_;
    if (is_playing_) prebuffer_ = std::min<std::chrono::milliseconds>(prebuffer_ * 2, LongestPrebuffer);
    is_playing_ = false;
    state_ = Buffering;
    return {};
}

/// Returns false if no device can play.
bool Attempt::FeedOutput() {
    speaker_.SetVolume(controls_.volume);
    if (!speaker_.FollowChoice()) return false;
    while (!queue_.Empty() && !controls_.cancelled && !controls_.paused) {
        if (!speaker_.IsOpen() || queue_.NextFormat() != speaker_.Format()) {
            if (!speaker_.IsIdle()) return true; // the previous format's sound plays to its end first
            if (!speaker_.Open(queue_.NextFormat())) return false;
            continue; // opening may have taken a while: look at the controls again
        }
        if (!speaker_.HasRoom()) return true;
        if (!WriteBlock()) return false;
    }
    return true;
}

bool Attempt::WriteBlock() {
    const Samples block = queue_.Take(SoundOutput::BlockLength);
    if (!speaker_.Write(block)) return false;
    played_ += Duration(speaker_.Format(), block.size());
    is_playing_ = true;
    return true;
}

} // namespace quillon
