#include "player/FrameFormat.h"

namespace quillon {

namespace {

constexpr unsigned KilobitsMpeg1[] = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr unsigned KilobitsMpeg2[] = {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};
constexpr unsigned RatesMpeg1[] = {44100, 48000, 32000};

} // namespace

std::optional<FrameFormat> ParseMp3Header(ByteView bytes) {
    if (bytes.size() < 4 || bytes[0] != 0xFF || (bytes[1] & 0xE0U) != 0xE0U) return {};
    const unsigned version = bytes[1] >> 3U & 3U; // 3 is MPEG 1, 2 MPEG 2, 0 MPEG 2.5
    const unsigned layer = bytes[1] >> 1U & 3U;   // 1 is layer III
    const unsigned bit_rate_index = bytes[2] >> 4U;
    const unsigned rate_index = bytes[2] >> 2U & 3U;
    const unsigned padding = bytes[2] >> 1U & 1U;
    const unsigned emphasis = bytes[3] & 3U;
    if (version == 1 || layer != 1 || bit_rate_index == 0 || bit_rate_index == 15 || rate_index == 3 ||
        emphasis == 2)
        return {};
    const bool mpeg1 = version == 3;
    FrameFormat format;
    format.sample_rate = RatesMpeg1[rate_index] / (mpeg1 ? 1 : version == 2 ? 2 : 4);
    format.channels = bytes[3] >> 6U == 3U ? 1 : 2;
    format.bit_rate = (mpeg1 ? KilobitsMpeg1 : KilobitsMpeg2)[bit_rate_index] * 1000;
    format.frame_samples = mpeg1 ? 1152 : 576;
    format.frame_bytes = format.frame_samples / 8 * format.bit_rate / format.sample_rate + padding;
    return format;
}

} // namespace quillon
