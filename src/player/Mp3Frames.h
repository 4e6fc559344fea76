#pragma once

#include "player/Pcm.h"

#include <optional>

namespace quillon {

/// What the four bytes at the front of an MPEG audio layer III frame say.
struct Mp3Format {
    std::uint32_t sample_rate; ///< 8000 to 48000
    std::uint16_t channels;    ///< 1 or 2
    std::uint32_t bit_rate;    ///< bits a second, 8000 to 320000
    std::size_t frame_samples; ///< moments a frame holds: 1152, or 576 below 32 kHz
    std::size_t frame_bytes;   ///< the whole frame, its header included

    bool operator==(const Mp3Format&) const = default;

    /// Whether one decoder can play both; the bit rate may change from frame to frame.
    bool SoundsLike(const Mp3Format& other) const {
        return sample_rate == other.sample_rate && channels == other.channels;
    }
};

/// Reads a frame's header; nothing if the bytes are none. Frames of the free format, whose length their header
/// does not tell, count as none. Layout and rates are those of ISO 11172-3 and 13818-3, and of their 2.5
/// extension.
std::optional<Mp3Format> ParseMp3Header(ByteView bytes);

struct Mp3Frame {
    Mp3Format format;
    ByteView bytes;
};

/// Finds the frames in bytes that may start anywhere and hold other things in between. Bytes that look like a
/// header are believed when a frame before has announced one there, or when the header they announce follows in
/// its place.
class Mp3Frames {
  public:
    void Feed(ByteView bytes);

    /// The next frame, once all of it has been fed. Its bytes are good until the next call.
    std::optional<Mp3Frame> Next();

    /// Bytes passed over since the last frame, tags aside; large when this is no such sound.
    std::size_t Skipped() const { return skipped_; }

  private:
    ByteView Rest() const { return ByteView(buffer_).subspan(taken_); }
    void PassTag();
    bool SkipTag();
    bool FollowsLast(const Mp3Format& format) const;

    std::vector<std::uint8_t> buffer_;
    std::size_t taken_ = 0;         // bytes of the buffer that are done with
    std::size_t tag_left_ = 0;      // bytes of a tag yet to be passed over
    std::optional<Mp3Format> last_; // format of the frame that ended where Rest starts
    bool at_start_ = true;
    std::size_t skipped_ = 0;
};

} // namespace quillon
