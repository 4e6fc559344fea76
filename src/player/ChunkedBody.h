#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quillon {

/// Decodes the chunked transfer coding (RFC 9112, section 7.1).
class ChunkedBody {
  public:
    /// Largest chunk that is accepted, in bytes.
    static constexpr std::uint64_t LargestChunk = 0xFFFFFFFF;

    /// Takes bytes as they arrive, moves the body's bytes to the front and returns their number.
    std::size_t Strip(std::span<std::uint8_t> bytes);

    /// The last chunk has arrived; whatever follows is not part of the body.
    bool HasEnded() const { return part_ == Part::End; }

    bool IsMalformed() const { return part_ == Part::Malformed; }

  private:
    enum class Part { Size, Extension, Data, DataEnd, End, Malformed };

    Part After(std::uint8_t byte);
    Part AfterSizeDigit(unsigned digit);
    Part AfterSizeLine();

    Part part_ = Part::Size;
    std::uint64_t size_ = 0; // of the chunk, then what remains of it
    int line_bytes_ = 0;     // of the size line
    bool has_digit_ = false;
};

} // namespace quillon
