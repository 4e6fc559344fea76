#include "player/Mp3Frames.h"

#include <algorithm>
#include <string_view>

namespace quillon {

namespace {

constexpr std::size_t HeaderBytes = 4;
constexpr std::size_t TagHeaderBytes = 10;
constexpr std::size_t LargestTag = 16U << 20U; // room for any cover picture

constexpr unsigned KilobitsMpeg1[] = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr unsigned KilobitsMpeg2[] = {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};
constexpr unsigned RatesMpeg1[] = {44100, 48000, 32000};

bool StartsWith(ByteView bytes, std::string_view mark) {
    return bytes.size() >= mark.size() && std::equal(mark.begin(), mark.end(), bytes.begin());
}

} // namespace

std::optional<Mp3Format> ParseMp3Header(ByteView bytes) {
    if (bytes.size() < HeaderBytes || bytes[0] != 0xFF || (bytes[1] & 0xE0U) != 0xE0U) return {};
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
    Mp3Format format{};
    format.sample_rate = RatesMpeg1[rate_index] / (mpeg1 ? 1 : version == 2 ? 2 : 4);
    format.channels = bytes[3] >> 6U == 3U ? 1 : 2;
    format.bit_rate = (mpeg1 ? KilobitsMpeg1 : KilobitsMpeg2)[bit_rate_index] * 1000;
    format.frame_samples = mpeg1 ? 1152 : 576;
    format.frame_bytes = format.frame_samples / 8 * format.bit_rate / format.sample_rate + padding;
    return format;
}

void Mp3Frames::Feed(ByteView bytes) {
    buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(consumed_));
    consumed_ = 0;
    buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
}

std::optional<Mp3Frame> Mp3Frames::Next() {
    while (true) {
        SkipTagBytes();
        const ByteView rest = Rest();
        if (rest.size() < HeaderBytes) return {};
        if ((at_start_ || last_) && StartsWith(rest, "ID3")) {
            if (rest.size() < TagHeaderBytes) return {};
            if (StartTag()) continue;
        }
        const auto format = ParseMp3Header(rest);
        if (format) {
            const bool follows = FollowsLast(*format);
            if (rest.size() < format->frame_bytes + (follows ? 0 : HeaderBytes)) return {};
            const auto next = ParseMp3Header(rest.subspan(format->frame_bytes));
            if (follows || (next && next->SharesDecoderWith(*format))) {
                consumed_ += format->frame_bytes;
                last_ = format;
                at_start_ = false;
                skipped_ = 0;
                return Mp3Frame{*format, rest.first(format->frame_bytes)};
            }
        }
        ++consumed_;
        ++skipped_;
        at_start_ = false;
        last_.reset();
    }
}

bool Mp3Frames::FollowsLast(const Mp3Format& format) const {
    return last_ && last_->SharesDecoderWith(format);
}

void Mp3Frames::SkipTagBytes() {
    const std::size_t count = std::min(tag_left_, buffer_.size() - consumed_);
    consumed_ += count;
    tag_left_ -= count;
}

/// An ID3v2 tag gives its length as four times seven bits.
bool Mp3Frames::StartTag() {
    const ByteView tag = Rest();
    std::size_t size = 0;
    for (const std::uint8_t byte : tag.subspan(6, 4)) {
        if (byte >= 0x80) return false;
        size = size << 7U | byte;
    }
    const bool has_footer = (tag[5] & 0x10U) != 0;
    if (tag[3] == 0xFF || tag[4] == 0xFF || size > LargestTag) return false;
    tag_left_ = TagHeaderBytes + size + (has_footer ? TagHeaderBytes : 0);
    return true;
}

} // namespace quillon
