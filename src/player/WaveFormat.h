#pragma once

#include "player/Pcm.h"

#include <optional>
#include <vector>

namespace quillon {

/// What a RIFF/WAVE file says of its sound.
struct WaveFormat {
    static constexpr unsigned LinearSamples = 1;

    unsigned coding = 0; ///< registered number of the way the samples are coded
    PcmFormat sound;
    std::size_t block_bytes = 0;      ///< sound can be decoded in multiples of it; at least 1
    unsigned bits = 0;                ///< of a sample: 8, 16, 24 or 32 when linear
    std::vector<std::uint8_t> header; ///< a WAVEFORMATEX with what belongs behind it

    bool IsLinear() const { return coding == LinearSamples; }
};

/// Reads the content of a "fmt " chunk, or its beginning when it is long. Nothing when it contradicts itself or
/// is beyond what is played: one or two channels, 1 to 192 kHz. The sizes of the usual codings are checked,
/// because codecs reckon with them unseen; other codings are left to their codec.
std::optional<WaveFormat> ReadWaveFormat(ByteView chunk);

} // namespace quillon
