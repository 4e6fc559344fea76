#pragma once

#include "player/Headroom.h"
#include "player/PlayerSystem.h"
#include "player/SmoothSound.h"
#include "win32/sound/SoundFunctions.h"
#include "win32/system/Handle.h"

#include <windows.h>

#include <array>
#include <mutex>
#include <thread>

namespace quillon {

/// Plays on a wave device. What a device has been given cannot be taken back without a click, so a thread of
/// its own gives it 10 ms at a time: when the sound pauses, at most 20 ms and the ramp are still to be heard.
class WaveOut : public SoundOutput {
  public:
    /// `number` is that of a wave device. Null if it cannot play the format. `wake` is set whenever there is
    /// room again.
    static std::unique_ptr<WaveOut> Open(UINT number, const PcmFormat& format, HANDLE wake);

    /// Takes over an open device that sets `due` whenever it has played a block.
    WaveOut(HWAVEOUT device, HANDLE due, const PcmFormat& format, HANDLE wake);
    ~WaveOut() override;

    bool HasRoom() override;
    bool Write(const Samples& samples) override;
    bool IsIdle() override;
    void SetVolume(int volume) override;
    void SetPaused(bool paused, std::chrono::milliseconds ramp) override;

  private:
    using Time = Headroom::Time; // of the steady clock

    struct Block {
        WAVEHDR header{};
        Samples samples;

        bool IsQueued() const;
    };

    void Feed();
    void GiveWhatIsDue(Time now);
    bool IsOver(Time now) const;
    Time NextLook(Time now) const;
    void Begin(Time now);
    void Give(Time length, Time lead_in);
    void CheckPosition(Time now);
    void StartCheck(Time now);
    std::size_t SamplesIn(Time length) const;
    DWORD PlayedBytes() const;
    long QueuedBlocks() const;
    void Release(Block& block);
    bool GetsBlocksBack() const;

    static void CloseDevice(HWAVEOUT device) { wave::Close(device); }
    static void CloseEvent(HANDLE event) { CloseHandle(event); }

    const PcmFormat format_;
    const HANDLE wake_; // of the session
    Handle<HANDLE, CloseEvent> due_;
    using Blocks = std::array<Block, 20>;
    std::unique_ptr<Blocks> blocks_ = std::make_unique<Blocks>(); // before the device: they must outlive it
    Handle<HWAVEOUT, CloseDevice> device_;

    std::mutex mutex_; // guards the rest
    SmoothSound sound_;
    bool is_full_ = false;
    bool has_failed_ = false;
    bool closing_ = false;
    Time close_by_{0};
    Time given_until_{0}; // when all that the device has been given will have been played,
    Time sound_until_{0}; // and the last of it that is sound
    Headroom headroom_;
    Time checked_{0}; // when the device's position was, and what that was
    DWORD checked_bytes_ = 0;
    Time given_{0}; // to the device since then
    std::thread thread_;
};

} // namespace quillon
