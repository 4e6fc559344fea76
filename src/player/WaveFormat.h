#pragma once

#include "player/Pcm.h"

#include <optional>
#include <vector>

namespace quillon {

/// How a RIFF/WAVE file codes its sound.
struct WaveFormat {
    static constexpr unsigned LinearSamples = 1;

    unsigned coding = 0; ///< registered format tag
    PcmFormat sound;
    std::size_t block_bytes = 0;      ///< sound is decoded in multiples of this; at least 1
    bool is_checked = false;          ///< the header's sizes fit the coding
    unsigned bits = 0;                ///< per sample; 8, 16, 24 or 32 if linear
    std::vector<std::uint8_t> header; ///< a WAVEFORMATEX with its extra bytes

    bool IsLinear() const { return coding == LinearSamples; }
};

/// Reads a "fmt " chunk, or the beginning of a long one. Returns nothing if it is inconsistent, or not of one
/// or two channels at 1 to 192 kHz. The sizes of the usual codings are checked, because their codecs trust
/// them; other codings are left to their codec.
std::optional<WaveFormat> ReadWaveFormat(ByteView chunk);

} // namespace quillon
