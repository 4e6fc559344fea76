#pragma once

#include "player/PlayerSystem.h"
#include "win32/system/Handle.h"

#include <windows.h>

#include <array>
#include <mmsystem.h>

namespace quillon {

/// Plays on the user's default wave device.
class WaveOut : public SoundOutput {
  public:
    /// Null if there is no device for the format. `wake` is set whenever a block has been played.
    static std::unique_ptr<WaveOut> Open(const PcmFormat& format, HANDLE wake);

    WaveOut(HWAVEOUT device, const PcmFormat& format)
        : device_(device), longest_queue_(std::size_t{format.sample_rate} * format.channels / 5) {}
    ~WaveOut() override;

    bool HasRoom() override;
    bool Write(const Samples& samples) override;
    bool IsIdle() override;
    void SetPaused(bool paused) override;

  private:
    struct Block {
        WAVEHDR header{};
        Samples samples;

        bool IsQueued() const;
    };

    void Release(Block& block);

    static void Close(HWAVEOUT device) { waveOutClose(device); }

    std::array<Block, 5> blocks_; // declared first: they must outlive the open device
    Handle<HWAVEOUT, Close> device_;
    std::size_t longest_queue_; // samples, 200 ms: enough to bridge delays, yet a new volume is heard soon
};

} // namespace quillon
