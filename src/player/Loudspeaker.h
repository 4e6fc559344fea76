#pragma once

#include "player/PlayerSystem.h"

namespace quillon {

/// Plays on the sound device that the user has chosen, or the default one. When the device in use fails, stalls
/// or takes sound faster than it could play it, switches to the device that is the default by then and drops
/// what was queued.
class Loudspeaker {
  public:
    /// A device that makes no progress for this long counts as gone, whatever it reports.
    static constexpr std::chrono::seconds StandstillTimeout{2};

    explicit Loudspeaker(PlayerSystem& system) : system_(system) {}

    /// Opens the default device for the format, closing the one in use. Returns false if no device can play.
    bool Open(const PcmFormat& format);

    /// Silences the device by the latest pause's ramp and closes it.
    void Close() { output_.reset(); }

    /// Pauses at the end of a ramp, or resumes where it paused; a device that is opened later begins like that.
    void SetPaused(bool paused, std::chrono::milliseconds ramp);

    /// 0 to 100.
    void SetVolume(int volume);

    /// Moves to the device that the user has chosen meanwhile, dropping what is queued. Returns false if no
    /// device can play.
    bool FollowChoice();

    bool IsOpen() const { return output_ != nullptr; }
    const PcmFormat& Format() const { return format_; }

    /// Whether everything queued has been played.
    bool IsIdle() const { return !output_ || output_->IsIdle(); }

    // The following need an open device.

    bool HasRoom() const { return output_->HasRoom(); }

    /// Queues a block of at most SoundOutput::BlockLength, switching devices if need be. Returns false if no
    /// device can play.
    bool Write(const Samples& samples);

    /// Switches devices if the current one has stalled; to be called regularly while it is not idle. Returns
    /// false if no device can play.
    bool CheckProgress();

  private:
    bool SwitchDevice();
    bool Reopen();
    void Prepare();
    bool PlaysTooFast() const;
    void Count(const Samples& samples);

    PlayerSystem& system_;
    std::unique_ptr<SoundOutput> output_;
    PcmFormat format_;
    int volume_ = 100;
    std::chrono::milliseconds first_ramp_{0}; // of the next device to be opened; 0: the usual one
    std::chrono::milliseconds last_write_{0};
    std::chrono::milliseconds count_start_{0}; // when counting began
    std::chrono::microseconds written_{0};     // sound since then
    int choice_ = 0;                           // of the user, when `output_` was opened
    bool has_switched_ = false;                // and the new device is still on trial
};

} // namespace quillon
