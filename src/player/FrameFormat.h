#pragma once

#include "player/Pcm.h"

#include <optional>

namespace quillon {

/// Codings of sound that come as a stream of frames, each with a header of its own.
enum class FrameCoding { Mp3, Aac };

/// What the header of a frame says.
struct FrameFormat {
    FrameCoding coding = FrameCoding::Mp3;
    std::uint32_t sample_rate = 0; ///< 7350 to 96000
    std::uint16_t channels = 0;    ///< 1 or 2
    std::uint32_t bit_rate = 0;    ///< bit/s; 0 for AAC, whose frames do not say
    std::size_t frame_samples = 0; ///< samples a channel
    std::size_t frame_bytes = 0;   ///< including the header

    bool operator==(const FrameFormat&) const = default;

    /// Whether one decoder can play both; the bit rate may change between frames.
    bool SharesDecoderWith(const FrameFormat& other) const {
        return coding == other.coding && sample_rate == other.sample_rate && channels == other.channels;
    }
};

/// Reads the four-byte header of an MPEG audio layer III frame; nothing if the bytes are not one, or if it is
/// of the free format, which does not give the frame's length. Layout and rates are those of ISO 11172-3 and
/// 13818-3, and of their 2.5 extension.
std::optional<FrameFormat> ParseMp3Header(ByteView bytes);

/// Reads the seven-byte ADTS header (ISO 14496-3, annex 1.A) of an AAC-LC frame, which may carry HE-AAC;
/// nothing if the bytes are not one, or if it has other than one or two channels. The decoder may give twice
/// the header's rate and channels.
std::optional<FrameFormat> ParseAdtsHeader(ByteView bytes);

} // namespace quillon
