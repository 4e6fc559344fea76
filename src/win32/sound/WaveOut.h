#pragma once

#include "player/PlayerSystem.h"
#include "win32/system/Handle.h"

#include <windows.h>

#include <array>
#include <mmsystem.h>

namespace quillon {

/// Sound on the user's default wave device.
class WaveOut : public SoundOutput {
  public:
    /// Null when there is no device. `wake` is set whenever a block has been played.
    static std::unique_ptr<WaveOut> Open(const PcmFormat& format, HANDLE wake);

    WaveOut(HWAVEOUT device, const PcmFormat& format)
        : device_(device), most_queued_(std::size_t{format.sample_rate} * format.channels / 5) {}
    ~WaveOut() override;

    bool HasRoom() override;
    bool Write(const Samples& samples) override;
    bool IsIdle() override;
    void Hold(bool held) override;

  private:
    struct Block {
        WAVEHDR header{};
        Samples samples;

        bool IsQueued() const;
    };

    void Release(Block& block);

    static void Close(HWAVEOUT device) { waveOutClose(device); }

    std::array<Block, 5> blocks_; // before the device, which must be closed by the time they go
    Handle<HWAVEOUT, Close> device_;
    std::size_t most_queued_; // samples of 200 ms: the worker may come late, but a new volume is heard soon
};

} // namespace quillon
