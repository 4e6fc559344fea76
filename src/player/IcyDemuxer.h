#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quillon {

/// Strips ICY metadata, which follows every `interval` bytes of audio: one byte with its length in units of 16
/// bytes, then text padded with zeros.
class IcyDemuxer {
  public:
    static constexpr std::size_t LargestInterval = 16U << 20U;

    /// `interval`: bytes of audio between metadata blocks, 1 to LargestInterval.
    explicit IcyDemuxer(std::size_t interval) : interval_(interval), audio_left_(interval) {}

    /// Takes bytes as they arrive, moves the audio to the front and returns the number of its bytes.
    std::size_t Strip(std::span<std::uint8_t> bytes);

    /// The latest title: one line of at most 120 characters, without control characters. UTF-8.
    const std::string& Title() const { return title_; }

  private:
    void TakeMetadataByte(std::uint8_t byte);

    std::size_t interval_;
    std::size_t audio_left_;
    bool in_metadata_ = false; // past its length byte
    std::size_t metadata_left_ = 0;
    std::string metadata_;
    std::string title_;
};

/// The title in metadata like "StreamTitle='Tower';StreamUrl='';". The title may contain quotes.
std::string TitleOf(std::string_view metadata);

} // namespace quillon
