#include "player/AudioFrames.h"

#include <algorithm>
#include <string_view>

namespace quillon {

namespace {

constexpr std::size_t HeaderBytes = 7; // of the longer kind; no frame is shorter
constexpr std::size_t TagHeaderBytes = 10;
constexpr std::size_t LargestTag = 16U << 20U; // room for any cover picture

bool StartsWith(ByteView bytes, std::string_view mark) {
    return bytes.size() >= mark.size() && std::equal(mark.begin(), mark.end(), bytes.begin());
}

std::optional<FrameFormat> ParseHeader(ByteView bytes) {
    const auto mp3 = ParseMp3Header(bytes);
    return mp3 ? mp3 : ParseAdtsHeader(bytes);
}

} // namespace

void AudioFrames::Feed(ByteView bytes) {
    buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(consumed_));
    consumed_ = 0;
    buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
}

std::optional<AudioFrame> AudioFrames::Next() {
    while (true) {
        SkipTagBytes();
        const ByteView rest = Rest();
        if (rest.size() < HeaderBytes) return {};
        if ((at_start_ || last_) && StartsWith(rest, "ID3")) {
            if (rest.size() < TagHeaderBytes) return {};
            if (StartTag()) continue;
        }
        const auto format = ParseHeader(rest);
        if (format) {
            const bool follows = FollowsLast(*format);
            if (rest.size() < format->frame_bytes + (follows ? 0 : HeaderBytes)) return {};
            const auto next = ParseHeader(rest.subspan(format->frame_bytes));
            if (follows || (next && next->SharesDecoderWith(*format))) {
                consumed_ += format->frame_bytes;
                last_ = format;
                skipped_ = 0;
                return AudioFrame{*format, rest.first(format->frame_bytes)};
            }
        }
        ++consumed_;
        ++skipped_;
        at_start_ = false;
        last_.reset();
    }
}

bool AudioFrames::FollowsLast(const FrameFormat& format) const {
    return last_ && last_->SharesDecoderWith(format);
}

void AudioFrames::SkipTagBytes() {
    const std::size_t count = std::min(tag_left_, buffer_.size() - consumed_);
    consumed_ += count;
    tag_left_ -= count;
}

/// An ID3v2 tag gives its length as four times seven bits.
bool AudioFrames::StartTag() {
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
