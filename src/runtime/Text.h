#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

// Text is UTF-8. Lengths count characters (code points), and positions do so from 1; an invalid byte counts as
// one character.

/// Number of characters.
std::size_t Len(std::string_view text);

/// Position of `find` in `text` at or after `start`, 0 if there is none. Raises error 5 for a start below 1.
std::ptrdiff_t InStr(std::ptrdiff_t start, std::string_view text, std::string_view find);
inline std::ptrdiff_t InStr(std::string_view text, std::string_view find) {
    return InStr(1, text, find);
}

/// `length` characters from `start`, fewer at the end of the text. Raises error 5 for a start below 1 or a
/// negative length.
std::string Mid(std::string_view text, std::ptrdiff_t start, std::ptrdiff_t length);
std::string Mid(std::string_view text, std::ptrdiff_t start);

/// The first or last `length` characters. Raises error 5 for a negative length.
std::string Left(std::string_view text, std::ptrdiff_t length);
std::string Right(std::string_view text, std::ptrdiff_t length);

/// Upper case of one character (a code point).
std::uint32_t UpperCodePoint(std::uint32_t character);

/// Lower and upper case of Latin, Greek and Cyrillic letters; other characters stay as they are.
std::string LCase(std::string_view text);
std::string UCase(std::string_view text);

/// Compares two texts in lower case byte by byte: negative, 0 or positive.
int CompareLCase(std::string_view a, std::string_view b);

inline bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

/// Whether the bytes are well-formed UTF-8.
bool IsUtf8(std::string_view bytes);

} // namespace quillon
