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

/// Sound in 16-bit samples, the channels of one moment side by side.
struct PcmFormat {
    std::uint32_t sample_rate = 0; ///< moments a second
    std::uint16_t channels = 0;    ///< 1 or 2

    bool operator==(const PcmFormat&) const = default;
};

/// How long that many samples of the format last.
std::chrono::microseconds Duration(const PcmFormat& format, std::size_t samples);

/// Adds samples of 8 (unsigned), 16, 24 or 32 bits, little-endian, as 16 bits. `data` holds whole samples.
void AppendAs16Bit(ByteView data, unsigned bits, Samples& samples);

/// Makes the samples softer, `volume` 0 to 100 per cent of their amplitude.
void Scale(std::span<std::int16_t> samples, int volume);

/// Decoded sound that waits to be played; its format may change on the way.
class PcmQueue {
  public:
    void Push(const PcmFormat& format, Samples samples);

    bool Empty() const { return blocks_.empty(); }

    /// The format of the sound that is next. The queue must not be empty.
    const PcmFormat& NextFormat() const { return blocks_.front().format; }

    /// How long all of it lasts.
    std::chrono::microseconds Length() const { return length_; }

    /// Takes the next sound, of one format and at most `limit` long. The queue must not be empty.
    Samples Take(std::chrono::microseconds limit);

    /// Throws the oldest sound away until at most `limit` is left.
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
