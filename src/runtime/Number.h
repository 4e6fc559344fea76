#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

/// Value of the number at the start of a text, 0 if there is none. Blanks are skipped even inside it, the
/// decimal sign is ".", "E" and "D" mark an exponent, "&H" a hexadecimal number (up to four digits count as a
/// signed 16-bit value). Raises error 6 if it does not fit a double.
double Val(std::string_view text);

/// Whether the text is one decimal number, apart from blanks around it.
bool IsNumeric(std::string_view text);

/// The number as text, with a blank instead of a plus sign.
std::string Str(std::int32_t number);

/// Upper-case hexadecimal digits without leading zeros; "0" for 0.
std::string Hex(std::uint32_t number);

/// Formats a number by a pattern of "0", "#", "," and ".": halves round away from zero, "0" pads, "," groups by
/// thousands, and an integer part of 0 is left out if the pattern has no "0" for it.
std::string Format(double number, std::string_view pattern);

/// Round toward minus infinity, and toward zero.
double Int(double number);
double Fix(double number);

/// -1, 0 or +1.
std::int16_t Sgn(double number);

/// Round to the nearest whole number, halves to even. Raise error 6 if it does not fit the type.
std::int32_t CLng(double number);
std::int16_t CInt(double number);

} // namespace quillon
