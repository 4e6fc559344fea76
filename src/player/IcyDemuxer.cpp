#include "player/IcyDemuxer.h"

#include "player/PlainText.h"

#include <algorithm>

namespace quillon {

namespace {

/// A tool tip of some lines, in characters.
constexpr std::ptrdiff_t LongestTitle = 120;

} // namespace

std::size_t IcyDemuxer::Strip(std::span<std::uint8_t> bytes) {
    std::size_t kept = 0;
    for (std::size_t at = 0; at < bytes.size();) {
        if (sound_left_ == 0) {
            TakeAnnouncementByte(bytes[at++]);
            continue;
        }
        const std::size_t count = std::min(sound_left_, bytes.size() - at);
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), count,
                    bytes.begin() + static_cast<std::ptrdiff_t>(kept));
        at += count;
        kept += count;
        sound_left_ -= count;
    }
    return kept;
}

void IcyDemuxer::TakeAnnouncementByte(std::uint8_t byte) {
    if (in_announcement_) {
        announcement_ += static_cast<char>(byte);
        --announcement_left_;
    } else {
        announcement_left_ = std::size_t{byte} * 16;
        in_announcement_ = true;
    }
    if (announcement_left_ > 0) return;
    if (announcement_.find("StreamTitle=") != std::string::npos) title_ = TitleOf(announcement_);
    announcement_.clear();
    in_announcement_ = false;
    sound_left_ = interval_;
}

std::string TitleOf(std::string_view announcement) {
    static constexpr std::string_view mark = "StreamTitle='";
    const std::size_t start = announcement.find(mark);
    if (start == announcement.npos) return {};
    announcement.remove_prefix(start + mark.size());
    announcement = announcement.substr(0, announcement.find('\0'));
    const std::size_t end = std::min(announcement.find("';"), announcement.rfind('\''));
    return OneLine(PlainText(announcement.substr(0, end)), LongestTitle);
}

} // namespace quillon
