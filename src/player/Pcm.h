#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <vector>

namespace quillon {

using ByteView = std::span<const std::uint8_t>;
using Samples = std::vector<std::int16_t>;

/// Sound in 16-bit samples, interleaved by channel.
struct PcmFormat {
    std::uint32_t sample_rate = 0; ///< samples a second and channel
    std::uint16_t channels = 0;    ///< 1 or 2

    bool operator==(const PcmFormat&) const = default;
};

/// How long that many samples (of all channels together) last.
std::chrono::microseconds Duration(const PcmFormat& format, std::size_t samples);

/// Appends little-endian samples of 8 (unsigned), 16, 24 or 32 bits as 16 bits. `data` holds whole samples.
void AppendAs16Bit(ByteView data, unsigned bits, Samples& samples);

/// Decoded sound waiting to be played. Its format may change midway.
class PcmQueue {
  public:
    void Push(const PcmFormat& format, Samples samples);

    bool Empty() const { return blocks_.empty(); }

    /// The format of the next sound. The queue must not be empty.
    const PcmFormat& NextFormat() const { return blocks_.front().format; }

    /// How long all of it lasts.
    std::chrono::microseconds Length() const { return length_; }

    /// Removes and returns the next sound, of a single format and at most `limit` long. The queue must not be
    /// empty.
    Samples Take(std::chrono::microseconds limit);

    /// Drops the oldest sound until at most `limit` is left.
    void KeepLatest(std::chrono::microseconds limit);

  private:
    struct Block {
        PcmFormat format;
        Samples samples;
        std::size_t taken = 0;
    };

    std::deque<Block> blocks_;
    std::chrono::microseconds length_{0};
};

} // namespace quillon
