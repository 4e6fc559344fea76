#include "player/FrameFormat.h"

#include <iterator>

namespace quillon {

namespace {

constexpr std::size_t HeaderBytes = 7;
constexpr unsigned Rates[] = {96000, 88200, 64000, 48000, 44100, 32000, 24000,
                              22050, 16000, 12000, 11025, 8000,  7350};
constexpr unsigned LowComplexity = 1;

} // namespace

std::optional<FrameFormat> ParseAdtsHeader(ByteView bytes) {
    if (bytes.size() < HeaderBytes || bytes[0] != 0xFF || (bytes[1] & 0xF6U) != 0xF0U) return {};
    const unsigned profile = bytes[2] >> 6U;
    const unsigned rate_index = bytes[2] >> 2U & 15U;
    const unsigned channels = (bytes[2] & 1U) << 2U | bytes[3] >> 6U;
    const std::size_t blocks = (bytes[6] & 3U) + 1;
    FrameFormat format;
    format.coding = FrameCoding::Aac;
    format.frame_bytes = (bytes[3] & 3U) << 11U | static_cast<unsigned>(bytes[4]) << 3U | bytes[5] >> 5U;
    if (profile != LowComplexity || rate_index >= std::size(Rates) || channels < 1 || channels > 2 ||
        format.frame_bytes <= HeaderBytes)
        return {};
    format.sample_rate = Rates[rate_index];
    format.channels = static_cast<std::uint16_t>(channels);
    format.frame_samples = 1024 * blocks;
    return format;
}

} // namespace quillon
