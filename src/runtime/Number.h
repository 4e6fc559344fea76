#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

/// Value of the leading number of a text, 0 if it starts with none: blanks are skipped wherever they stand, the
/// decimal sign is ".", "E" and "D" mark an exponent, "&H" a hexadecimal number (up to four digits are taken as
/// 16 bits with sign). Raises error 6 when it does not fit a double.
double Val(std::string_view text);

/// Whether the text, blanks at its ends aside, is nothing but one decimal number.
bool IsNumeric(std::string_view text);

/// The number as text with a blank in the place of a plus sign.
std::string Str(std::int32_t number);

/// Upper-case hexadecimal digits without leading zeros; "0" for 0.
std::string Hex(std::uint32_t number);

/// The number in the form of a pattern made of "0", "#", "," and ".": halves round away from zero, "0" pads,
/// "," groups by thousands, and a whole part of 0 without a "0" in the pattern is left out.
std::string Format(double number, std::string_view pattern);

/// Rounded toward minus infinity, and toward zero.
double Int(double number);
double Fix(double number);

/// -1, 0 or +1.
std::int16_t Sgn(double number);

/// Rounded to the nearest whole number, halves to even. Raise error 6 when it does not fit the type.
std::int32_t CLng(double number);
std::int16_t CInt(double number);

} // namespace quillon
