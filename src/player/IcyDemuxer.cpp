#include "player/IcyDemuxer.h"

#include "player/PlainText.h"

#include <algorithm>

namespace quillon {

namespace {

/// In characters; a tool tip shows it in a few lines.
constexpr std::ptrdiff_t LongestTitle = 120;

} // namespace

std::size_t IcyDemuxer::Strip(std::span<std::uint8_t> bytes) {
    std::size_t kept = 0;
    for (std::size_t at = 0; at < bytes.size();) {
        if (audio_left_ == 0) {
            TakeMetadataByte(bytes[at++]);
            continue;
        }
        const std::size_t count = std::min(audio_left_, bytes.size() - at);
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), count,
                    bytes.begin() + static_cast<std::ptrdiff_t>(kept));
        at += count;
        kept += count;
        audio_left_ -= count;
    }
    return kept;
}

void IcyDemuxer::TakeMetadataByte(std::uint8_t byte) {
    if (in_metadata_) {
        metadata_ += static_cast<char>(byte);
        --metadata_left_;
    } else {
        metadata_left_ = std::size_t{byte} * 16;
        in_metadata_ = true;
    }
    if (metadata_left_ > 0) return;
    if (metadata_.find("StreamTitle=") != std::string::npos) title_ = TitleOf(metadata_);
    metadata_.clear();
    in_metadata_ = false;
    audio_left_ = interval_;
}

std::string TitleOf(std::string_view metadata) {
    static constexpr std::string_view Mark = "StreamTitle='";
    const std::size_t start = metadata.find(Mark);
    if (start == metadata.npos) return {};
    metadata.remove_prefix(start + Mark.size());
    metadata = metadata.substr(0, metadata.find('\0'));
    const std::size_t end = std::min(metadata.find("';"), metadata.rfind('\''));
    return OneLine(PlainText(metadata.substr(0, end)), LongestTitle);
}

} // namespace quillon
