#pragma once

#include "player/Ending.h"
#include "player/Loudspeaker.h"
#include "player/SoundReader.h"
#include "ports/MediaPlayer.h"

#include <atomic>
#include <memory>
#include <optional>
#include <string>

namespace quillon {

/// What the listener wants; may change on any thread at any time.
struct Wishes {
    std::atomic<bool> cancelled = false;
    std::atomic<bool> paused = false;
    std::atomic<int> volume = 100; ///< 0 to 100
};

/// One try to play one source, from connecting to its end.
class Attempt {
  public:
    /// A source is also given up when its bytes do not amount to enough sound to start with in this time.
    static constexpr std::chrono::seconds LongestBuffering{30};

    /// A live stream is let go after so long a pause.
    static constexpr std::chrono::seconds LongestPause{60};

    Attempt(std::unique_ptr<ByteSource> source, const Wishes& wishes, PlayerSystem& system);

    /// Does what can be done without waiting. Nothing until the end.
    std::optional<Ending> Step();

    /// Transitioning, Buffering or Playing.
    PlayState State() const { return state_; }

    /// How much was given to the sound device.
    std::chrono::milliseconds Heard() const;

    const ByteSource& Source() const { return *source_; }

    /// The bytes of the playlist that the source turned out to be.
    const std::string& Playlist() const { return reader_.Playlist(); }

  private:
    void ObeyPause();
    bool IsPausedTooLong() const;
    void ReadAhead();
    bool WantsBytes() const;
    void TakeBytes(ByteView bytes);
    void TakeSupply(Supply supply);
    bool HasLasted(std::optional<std::chrono::milliseconds>& since, std::chrono::milliseconds length);
    void GiveUp();
    bool AwaitsSound() const;
    void End(Ending ending);
    std::optional<Ending> PlayAhead();
    std::optional<Ending> AfterSilence();
    bool FillOutput();
    bool Deliver();

    const std::unique_ptr<ByteSource> source_;
    const Wishes& wishes_;
    PlayerSystem& system_;
    SoundReader reader_;
    PcmQueue queue_;
    Loudspeaker speaker_;
    PlayState state_ = Transitioning;
    std::chrono::microseconds heard_{0};
    std::chrono::milliseconds lead_;                           // sound to have ready before it is heard
    std::optional<std::chrono::milliseconds> waiting_since_;   // when the bytes stopped coming
    std::optional<std::chrono::milliseconds> buffering_since_; // when there was too little sound to go on with
    std::optional<std::chrono::milliseconds> held_since_;      // when the pause was carried out
    std::optional<Ending> ending_;                             // how it ends once the queue is empty
    std::size_t taken_ = 0;                                    // bytes of the source
    bool sounding_ = false;
};

} // namespace quillon
