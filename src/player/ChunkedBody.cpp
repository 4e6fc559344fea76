#include "player/ChunkedBody.h"

#include <algorithm>
#include <string_view>

namespace quillon {

namespace {

constexpr int LongestSizeLine = 4096;

/// Value of a hexadecimal digit, 16 for any other byte.
unsigned DigitValue(std::uint8_t byte) {
    static constexpr std::string_view Digits = "0123456789abcdef0123456789ABCDEF";
    const std::size_t at = Digits.find(static_cast<char>(byte));
    return at == Digits.npos ? 16 : static_cast<unsigned>(at % 16);
}

} // namespace

std::size_t ChunkedBody::Strip(std::span<std::uint8_t> bytes) {
    std::size_t kept = 0;
    for (std::size_t at = 0; at < bytes.size();) {
        if (part_ != Part::Data) {
            part_ = After(bytes[at++]);
            continue;
        }
        const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(size_, bytes.size() - at));
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), count,
                    bytes.begin() + static_cast<std::ptrdiff_t>(kept));
        at += count;
        kept += count;
        size_ -= count;
        if (size_ == 0) part_ = Part::DataEnd;
    }
    return kept;
}

ChunkedBody::Part ChunkedBody::After(std::uint8_t byte) {
    switch (part_) {
    case Part::Size:
    case Part::Extension:
        if (byte == '\n') return AfterSizeLine();
        if (++line_bytes_ > LongestSizeLine) return Part::Malformed;
        if (part_ == Part::Extension || byte == '\r') return part_;
        if (byte == ';' || byte == ' ' || byte == '\t') return Part::Extension;
        return AfterSizeDigit(DigitValue(byte));
    case Part::DataEnd:
        if (byte == '\n') return Part::Size;
        return byte == '\r' ? Part::DataEnd : Part::Malformed;
    default:
        return part_;
    }
}

ChunkedBody::Part ChunkedBody::AfterSizeDigit(unsigned digit) {
    if (digit > 15) return Part::Malformed;
    has_digit_ = true;
    size_ = size_ * 16 + digit;
    return size_ > LargestChunk ? Part::Malformed : Part::Size;
}

ChunkedBody::Part ChunkedBody::AfterSizeLine() {
    if (!has_digit_) return Part::Malformed;
    line_bytes_ = 0;
    has_digit_ = false;
    return size_ == 0 ? Part::End : Part::Data;
}

} // namespace quillon
