#pragma once

#include "player/Pcm.h"

#include <optional>

namespace quillon {

/// What the four header bytes of an MPEG audio layer III frame say.
struct Mp3Format {
    std::uint32_t sample_rate; ///< 8000 to 48000
    std::uint16_t channels;    ///< 1 or 2
    std::uint32_t bit_rate;    ///< bit/s, 8000 to 320000
    std::size_t frame_samples; ///< samples a channel: 1152, or 576 below 32 kHz
    std::size_t frame_bytes;   ///< including the header

    bool operator==(const Mp3Format&) const = default;

    /// Whether one decoder can play both; the bit rate may change between frames.
    bool SharesDecoderWith(const Mp3Format& other) const {
        return sample_rate == other.sample_rate && channels == other.channels;
    }
};

/// Reads a frame's header; nothing if the bytes are not one, or if it is of the free format, which does not
/// give the frame's length. Layout and rates are those of ISO 11172-3 and 13818-3, and of their 2.5 extension.
std::optional<Mp3Format> ParseMp3Header(ByteView bytes);

struct Mp3Frame {
    Mp3Format format;
    ByteView bytes;
};

/// Finds MP3 frames in a stream that may be joined anywhere and contain other data. Bytes that look like a
/// header are accepted right after a frame, or if another header follows where the first says that its frame
/// ends.
class Mp3Frames {
  public:
    void Feed(ByteView bytes);

    /// The next frame, once all of it has been fed. Its bytes are valid until the next call.
    std::optional<Mp3Frame> Next();

    /// Bytes skipped since the last frame, apart from tags; large if this is not MP3.
    std::size_t Skipped() const { return skipped_; }

  private:
    ByteView Rest() const { return ByteView(buffer_).subspan(consumed_); }
    void SkipTagBytes();
    bool StartTag();
    bool FollowsLast(const Mp3Format& format) const;

    std::vector<std::uint8_t> buffer_;
    std::size_t consumed_ = 0;      // bytes of the buffer that are no longer needed
    std::size_t tag_left_ = 0;      // bytes of a tag still to be skipped
    std::optional<Mp3Format> last_; // of the frame that ended where Rest starts
    bool at_start_ = true;
    std::size_t skipped_ = 0;
};

} // namespace quillon
