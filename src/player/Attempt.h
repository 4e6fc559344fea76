#pragma once

#include "player/Loudspeaker.h"
#include "player/Outcome.h"
#include "player/SmoothSound.h"
#include "player/SoundReader.h"
#include "ports/MediaPlayer.h"

#include <atomic>
#include <memory>
#include <optional>
#include <string>

namespace quillon {

/// What the user asked of the player. Set on any thread, read by the session's.
struct TransportControls {
    std::atomic<bool> cancelled = false;
    std::atomic<bool> paused = false;
    std::atomic<int> volume = 100;                                  ///< 0 to 100
    std::atomic<std::chrono::milliseconds> ramp{SmoothSound::Ramp}; ///< of pausing and resuming
};

/// One try to play one source, from connecting to its end.
class Attempt {
  public:
    /// A source is given up when it takes longer than this to buffer enough sound to start.
    static constexpr std::chrono::seconds BufferingTimeout{30};

    /// A live stream is disconnected when it has been paused for this long.
    static constexpr std::chrono::seconds PauseTimeout{60};

    Attempt(std::unique_ptr<ByteSource> source, const TransportControls& controls, PlayerSystem& system);

    /// Does what can be done without waiting. Returns nothing until the attempt has ended.
    std::optional<Outcome> Step();

    /// Whether the last step ended early, before it had read what has arrived.
    bool HasMoreToRead() const { return has_more_to_read_; }

    /// Transitioning, Buffering or Playing.
    PlayState State() const { return state_; }

    /// How much sound the device was given.
    std::chrono::milliseconds Played() const;

    const ByteSource& Source() const { return *source_; }

    /// Why there is no sound, or no more.
    SilenceReason Problem() const;

    /// The bytes of the playlist, after Outcome::Playlist.
    const std::string& Playlist() const { return reader_.Playlist(); }

  private:
    void ApplyPause();
    bool IsPausedTooLong() const;
    void FillQueue();
    bool NeedsBytes() const;
    bool IsPausedLive() const;
    void TakeData(ByteView bytes);
    void DropOldSound(std::size_t bytes, std::chrono::microseconds sound);
    void TakeStatus(IoStatus status);
    bool HasLasted(std::optional<std::chrono::milliseconds>& since, std::chrono::milliseconds length);
    void GiveUp(SilenceCause cause);
    bool IsPrebuffering() const;
    void Finish(Outcome outcome);
    std::optional<Outcome> Play();
    std::optional<Outcome> AfterUnderrun();
    bool FeedOutput();
    bool WriteBlock();

    const std::unique_ptr<ByteSource> source_;
    const TransportControls& controls_;
    PlayerSystem& system_;
    SoundReader reader_;
    PcmQueue queue_;
    Loudspeaker speaker_;
    PlayState state_ = Transitioning;
    std::chrono::microseconds played_{0};
    std::chrono::milliseconds prebuffer_;                      // sound to buffer before it starts
    std::optional<std::chrono::milliseconds> stalled_since_;   // when data stopped coming
    std::optional<std::chrono::milliseconds> buffering_since_; // when the sound ran out
    std::optional<std::chrono::milliseconds> paused_since_;    // when the pause took effect
    SilenceCause given_up_ = SilenceCause::None;
    std::optional<Outcome> outcome_; // of the source; the attempt's once the queue is empty
    std::size_t received_ = 0;       // bytes
    std::size_t received_in_pause_ = 0;
    std::chrono::microseconds read_after_{0}; // in a pause, nothing is read before that time
    bool has_more_to_read_ = false;
    bool is_playing_ = false;
};

} // namespace quillon
