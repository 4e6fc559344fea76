#include "player/Attempt.h"

#include "player/Limits.h"
#include "player/Playlists.h"

#include <algorithm>
#include <array>

namespace quillon {

using namespace std::chrono_literals;

namespace {

constexpr auto FirstLead = 120ms;
constexpr auto LongestLead = 2000ms;
constexpr auto KeptWhilePaused = 2s;

/// So many bytes hold a frame if they are MP3 at all.
constexpr std::size_t EnoughToTell = 4096;

} // namespace

Attempt::Attempt(std::unique_ptr<ByteSource> source, const Wishes& wishes, PlayerSystem& system)
    : source_(std::move(source)),
      wishes_(wishes),
      system_(system),
      reader_(system),
      speaker_(system),
      lead_(FirstLead) {}

std::chrono::milliseconds Attempt::Heard() const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(heard_);
}

std::optional<Ending> Attempt::Step() {
    ObeyPause();
    if (IsPausedTooLong()) return Ending::PausedLong;
    ReadAhead();
    if (ending_ == Ending::Playlist || ending_ == Ending::NotAudio) return ending_;
    if (!held_since_) return PlayAhead();
    return ending_ == Ending::Ended ? std::nullopt : ending_; // a file waits with its last sound
}

void Attempt::ObeyPause() {
    const bool paused = wishes_.paused;
    if (paused == held_since_.has_value()) return;
    held_since_ = paused ? std::optional(system_.Now()) : std::nullopt;
    buffering_since_.reset();
    if (source_->IsLive()) {
        speaker_.Close();
        sounding_ = false;
    } else {
        speaker_.Hold(paused);
    }
}

bool Attempt::IsPausedTooLong() const {
    return held_since_ && source_->IsLive() && system_.Now() - *held_since_ >= LongestPause;
}

/// While a live stream is paused all of it is read, so that the server does not keep old sound for us.
bool Attempt::WantsBytes() const {
    if (wishes_.cancelled || ending_) return false;
    return queue_.Length() < lead_ || (held_since_ && wishes_.paused && source_->IsLive());
}

void Attempt::ReadAhead() {
    std::array<std::uint8_t, ReadSize> bytes;
    while (WantsBytes()) {
        const Got got = source_->Read(bytes);
        if (got.supply != Supply::Bytes) return TakeSupply(got.supply);
        TakeBytes(ByteView(bytes).first(got.count));
    }
    waiting_since_.reset();
}

void Attempt::TakeBytes(ByteView bytes) {
    if (bytes.empty()) return;
    waiting_since_.reset();
    if (state_ == Transitioning) state_ = Buffering;
    if (taken_ == 0 && source_->AnnouncesPlaylist()) reader_.ExpectPlaylist();
    taken_ += bytes.size();
    if (!reader_.Feed(bytes, queue_)) End(Ending::NotAudio);
    if (held_since_ && source_->IsLive()) queue_.KeepLatest(KeptWhilePaused);
}

/// What to make of no bytes.
void Attempt::TakeSupply(Supply supply) {
    switch (supply) {
    case Supply::End:
        return End(reader_.HasFoundSound() ? Ending::Ended : Ending::NotAudio);
    case Supply::Failed:
        return End(reader_.HasFoundSound() || taken_ < EnoughToTell ? Ending::Dropped : Ending::NotAudio);
    case Supply::NotAudio:
        return End(Ending::NotAudio);
    case Supply::Refused:
        return End(Ending::Refused);
    case Supply::NothingYet:
        if (state_ == Transitioning) state_ = Buffering;
        break;
    default:
        break;
    }
    if (HasLasted(waiting_since_, StallTimeout)) GiveUp();
}

void Attempt::GiveUp() {
    queue_ = {}; // too little to start with, and too old by now
    End(Ending::Dropped);
}

/// However the bytes of a playlist ended, what came of it is used.
void Attempt::End(Ending ending) {
    const bool is_playlist = reader_.IsPlaylist() && ending != Ending::Refused;
    ending_ = is_playlist && reader_.Playlist().size() <= LongestPlaylist ? Ending::Playlist : ending;
}

/// Whether what was noticed at `since`, or is now for the first time, has lasted so long.
bool Attempt::HasLasted(std::optional<std::chrono::milliseconds>& since, std::chrono::milliseconds length) {
    const auto now = system_.Now();
    if (!since) since = now;
    return now - *since >= length;
}

std::optional<Ending> Attempt::PlayAhead() {
    if (AwaitsSound()) {
        if (state_ != Transitioning) state_ = Buffering;
        if (HasLasted(buffering_since_, LongestBuffering)) GiveUp();
        return {};
    }
    buffering_since_.reset();
    if (!FillOutput()) return Ending::NoDevice;
    if (speaker_.IsIdle()) return AfterSilence();
    if (!speaker_.Watch()) return Ending::NoDevice;
    state_ = Playing;
    return {};
}

bool Attempt::AwaitsSound() const {
    return !sounding_ && !ending_ && queue_.Length() < lead_;
}

std::optional<Ending> Attempt::AfterSilence() {
    if (ending_ && queue_.Empty()) return ending_;
    if (sounding_)
        lead_ = std::min<std::chrono::milliseconds>(lead_ * 2, LongestLead); // once bitten, twice shy
    sounding_ = false;
    state_ = Buffering;
    return {};
}

/// False when there is no device to play on.
bool Attempt::FillOutput() {
    while (!queue_.Empty() && !wishes_.cancelled && !wishes_.paused) {
        if (!speaker_.IsOpen() || queue_.NextFormat() != speaker_.Format()) {
            if (!speaker_.IsIdle()) return true; // plays out the sound of the format before
            if (!speaker_.Open(queue_.NextFormat())) return false;
            continue; // for that may have taken a while
        }
        if (!speaker_.HasRoom()) return true;
        if (!Deliver()) return false;
    }
    return true;
}

bool Attempt::Deliver() {
    Samples block = queue_.Take(SoundOutput::BlockLength);
    Scale(block, wishes_.volume);
    if (!speaker_.Write(block)) return false;
    heard_ += Duration(speaker_.Format(), block.size());
    sounding_ = true;
    return true;
}

} // namespace quillon
