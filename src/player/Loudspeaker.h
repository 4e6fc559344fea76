#pragma once

#include "player/PlayerSystem.h"

namespace quillon {

/// Whatever device the user has for sound. When the one in use fails, stops playing or plays at no device's
/// pace, the sound moves to the device that is the default by then, without what was queued.
class Loudspeaker {
  public:
    /// A device that plays nothing of what it holds for so long is gone, though it may not say so.
    static constexpr std::chrono::seconds LongestStandstill{2};

    explicit Loudspeaker(PlayerSystem& system) : system_(system) {}

    /// Takes a device for that format in place of the one in use. False when there is none.
    bool Open(const PcmFormat& format);

    /// Silence at once.
    void Close() { output_.reset(); }

    /// Silence at once, to go on later in the same place.
    void Hold(bool held);

    bool IsOpen() const { return output_ != nullptr; }
    const PcmFormat& Format() const { return format_; }

    /// Whether nothing is left to be played.
    bool IsIdle() const { return !output_ || output_->IsIdle(); }

    // The following need an open device; of those that say so, false means that no device plays.

    bool HasRoom() const { return output_->HasRoom(); }

    /// Queues a block of at most SoundOutput::BlockLength. False as said.
    bool Write(const Samples& samples);

    /// Moves when the device stands still; to be called while it is not idle. False as said.
    bool Watch();

  private:
    bool Move();
    bool OpenAgain();
    bool PlaysTooFast() const;
    void Count(const Samples& samples);

    PlayerSystem& system_;
    std::unique_ptr<SoundOutput> output_;
    PcmFormat format_;
    std::chrono::milliseconds last_write_{0};
    std::chrono::milliseconds since_{0};   // when the count began
    std::chrono::microseconds written_{0}; // since then
    bool has_moved_ = false;               // and the device has not played well since
};

} // namespace quillon
