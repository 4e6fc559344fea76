#pragma once

#include "player/PlayerSystem.h"
#include "win32/sound/WinSoundDevices.h"
#include "win32/system/Handle.h"

#include <windows.h>

namespace quillon {

/// What one session needs of Windows. Everything it opens signals the same event, on which Wait waits.
class WinPlayerSystem : public PlayerSystem {
  public:
    /// Sound is played on the chosen device.
    explicit WinPlayerSystem(std::shared_ptr<ChosenDevice> device = std::make_shared<ChosenDevice>());

    std::unique_ptr<Connection> Connect(const StreamAddress& address, Reach reach) override;
    std::unique_ptr<SoundDecoder> OpenFrameDecoder(const FrameFormat& format) override;
    std::unique_ptr<SoundDecoder> OpenWaveDecoder(const WaveFormat& format) override;
    int OutputChoice() override { return device_->Revision(); }
    std::unique_ptr<SoundOutput> OpenOutput(const PcmFormat& format) override;
    std::chrono::milliseconds Now() override;
    void Wait(std::chrono::milliseconds at_most) override;
    void Wake() override;

  private:
    static void Close(HANDLE event) { CloseHandle(event); }

    const std::shared_ptr<ChosenDevice> device_;
    Handle<HANDLE, Close> event_;
};

} // namespace quillon
