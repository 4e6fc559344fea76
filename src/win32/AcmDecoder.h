#pragma once

#include "player/PlayerSystem.h"
#include "win32/Handle.h"

#include <windows.h>

#include <array>
#include <mmreg.h>
#include <mmsystem.h>
#include <msacm.h>

namespace quillon {

/// MPEG layer III by the system's codec manager.
class AcmDecoder : public Mp3Decoder {
  public:
    /// Null when the system has no codec for it.
    static std::unique_ptr<AcmDecoder> Open(const Mp3Format& format);

    explicit AcmDecoder(HACMSTREAM stream) : stream_(stream) {}
    ~AcmDecoder() override;

    bool Decode(ByteView frame, Samples& samples) override;

  private:
    bool Prepare();

    static void Close(HACMSTREAM stream) { acmStreamClose(stream, 0); }

    Handle<HACMSTREAM, Close> stream_;
    ACMSTREAMHEADER header_{};
    std::array<std::uint8_t, 8192> input_{};
    std::size_t waiting_ = 0; // bytes of the input that the codec has not taken yet
    std::array<std::int16_t, 8192> output_{};
    int failures_ = 0; // in a row
};

} // namespace quillon
