#pragma once

#include "player/PlayerSystem.h"
#include "win32/system/Handle.h"

#include <windows.h>

#include <mmreg.h>
#include <mmsystem.h>
#include <msacm.h>
#include <vector>

namespace quillon {

/// Decodes with the codecs of Windows' Audio Compression Manager.
class AcmDecoder : public SoundDecoder {
  public:
    // Null if the system has no codec for the format.
    static std::unique_ptr<AcmDecoder> Open(const Mp3Format& format);
    static std::unique_ptr<AcmDecoder> Open(const WaveFormat& format);

    explicit AcmDecoder(HACMSTREAM stream) : stream_(stream) {}
    ~AcmDecoder() override;

    bool Decode(ByteView bytes, Samples& samples) override;

  private:
    static std::unique_ptr<AcmDecoder> Open(WAVEFORMATEX& source);

    bool Prepare(std::size_t input_bytes);
    bool Convert(Samples& samples);

    static void Close(HACMSTREAM stream) { acmStreamClose(stream, 0); }

    Handle<HACMSTREAM, Close> stream_;
    ACMSTREAMHEADER header_{};
    std::vector<std::uint8_t> input_;
    std::size_t pending_ = 0; // bytes of the input that the codec has not used yet
    std::vector<std::int16_t> output_;
    int failures_ = 0; // in a row
};

} // namespace quillon
