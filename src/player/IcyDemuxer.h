#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quillon {

/// Takes the announcements out of a stream that has one behind every so many bytes of sound: a byte that tells
/// the announcement's length in units of 16 bytes, and the announcement, padded with zeros.
class IcyDemuxer {
  public:
    static constexpr std::size_t LargestInterval = 16U << 20U;

    /// `interval`: bytes of sound between announcements, 1 to LargestInterval.
    explicit IcyDemuxer(std::size_t interval) : interval_(interval), sound_left_(interval) {}

    /// Takes bytes as they come; moves what is sound to their front and returns how many that is.
    std::size_t Strip(std::span<std::uint8_t> bytes);

    /// The title announced last: one line of at most 120 characters, none of them a control character. UTF-8.
    const std::string& Title() const { return title_; }

  private:
    void TakeAnnouncementByte(std::uint8_t byte);

    std::size_t interval_;
    std::size_t sound_left_;
    bool in_announcement_ = false; // its length is known
    std::size_t announcement_left_ = 0;
    std::string announcement_;
    std::string title_;
};

/// The title in an announcement like "StreamTitle='Tower';StreamUrl='';", which may itself hold a quote.
std::string TitleOf(std::string_view announcement);

} // namespace quillon
