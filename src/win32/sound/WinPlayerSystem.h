#pragma once

#include "player/PlayerSystem.h"
#include "win32/system/Handle.h"

#include <windows.h>

namespace quillon {

/// What one session needs of Windows. Everything it opens signals the same event, on which Wait waits.
class WinPlayerSystem : public PlayerSystem {
  public:
    WinPlayerSystem();

    std::unique_ptr<Connection> Connect(const StreamAddress& address) override;
    std::unique_ptr<SoundDecoder> OpenFrameDecoder(const FrameFormat& format) override;
    std::unique_ptr<SoundDecoder> OpenWaveDecoder(const WaveFormat& format) override;
    std::unique_ptr<SoundOutput> OpenOutput(const PcmFormat& format) override;
    std::chrono::milliseconds Now() override;
    void Wait(std::chrono::milliseconds at_most) override;
    void Wake() override;

  private:
    static void Close(HANDLE event) { CloseHandle(event); }

    Handle<HANDLE, Close> event_;
};

} // namespace quillon
