#pragma once

#include "player/PlayerSystem.h"
#include "win32/sound/SoundFunctions.h"
#include "win32/system/Handle.h"

#include <vector>

namespace quillon {

/// Decodes with the codecs of Windows' Audio Compression Manager.
class AcmDecoder : public SoundDecoder {
  public:
    // For MP3 or waves. Null if the system has no codec for the format.
    static std::unique_ptr<AcmDecoder> Open(const FrameFormat& format);
    static std::unique_ptr<AcmDecoder> Open(const WaveFormat& format);

    AcmDecoder(HACMSTREAM stream, const PcmFormat& format) : stream_(stream), format_(format) {}
    ~AcmDecoder() override;

    bool Decode(ByteView bytes, Samples& samples) override;
    PcmFormat Format() const override { return format_; }

  private:
    static std::unique_ptr<AcmDecoder> Open(WAVEFORMATEX& source);

    bool Prepare(std::size_t input_bytes);
    bool Convert(Samples& samples);

    static void Close(HACMSTREAM stream) { codec::Close(stream, 0); }

    Handle<HACMSTREAM, Close> stream_;
    PcmFormat format_;
    ACMSTREAMHEADER header_{};
    std::vector<std::uint8_t> input_;
    std::size_t pending_ = 0; // bytes of the input that the codec has not used yet
    std::vector<std::int16_t> output_;
    int failures_ = 0; // in a row
};

} // namespace quillon
