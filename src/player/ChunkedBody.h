#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quillon {

/// Takes the body out of the chunks that a server may wrap it in (RFC 9112, section 7.1).
class ChunkedBody {
  public:
    /// The most that one chunk may announce, in bytes.
    static constexpr std::uint64_t LargestChunk = 0xFFFFFFFF;

    /// Takes bytes as they come; moves what is body to their front and returns how many that is.
    std::size_t Strip(std::span<std::uint8_t> bytes);

    /// The last chunk has come; what follows is none of the body.
    bool HasEnded() const { return part_ == Part::End; }

    bool IsMalformed() const { return part_ == Part::Malformed; }

  private:
    enum class Part { Size, Extension, Data, DataEnd, End, Malformed };

    Part After(std::uint8_t byte);
    Part AfterSizeDigit(unsigned digit);
    Part AfterSizeLine();

    Part part_ = Part::Size;
    std::uint64_t size_ = 0; // of the chunk, then what is left of it
    int line_bytes_ = 0;     // of the line that tells the size
    bool has_digit_ = false;
};

} // namespace quillon
