#include "runtime/Number.h"

#include "runtime/RuntimeError.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace quillon {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t SkipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && IsDigit(text[at])) ++at;
    return at;
}

std::size_t SkipSign(std::string_view text, std::size_t at) {
    return at < text.size() && (text[at] == '+' || text[at] == '-') ? at + 1 : at;
}

/// Length of the decimal number at the front of `text`, 0 if there is none.
std::size_t DecimalLength(std::string_view text) {
    const std::size_t start = SkipSign(text, 0);
    std::size_t end = SkipDigits(text, start);
    std::size_t digits = end - start;
    if (end < text.size() && text[end] == '.') {
        const std::size_t fraction = SkipDigits(text, end + 1);
        digits += fraction - end - 1;
        end = fraction;
    }
    if (digits == 0) return 0;
    if (end < text.size() && std::string_view("EeDd").find(text[end]) != std::string_view::npos) {
        const std::size_t exponent = SkipSign(text, end + 1);
        if (const std::size_t stop = SkipDigits(text, exponent); stop > exponent) end = stop;
    }
    return end;
}

double ParseDecimal(std::string digits) {
    if (!digits.empty() && digits[0] == '+') digits.erase(0, 1);
    std::replace_if(
        digits.begin(), digits.end(), [](char c) { return c == 'D' || c == 'd'; }, 'E');
    const double value = std::strtod(digits.c_str(), nullptr); // the program never leaves the "C" locale
    if (std::isinf(value)) Raise(Overflow);
    return value;
}

double ParseHexadecimal(std::string_view digits) {
    std::uint32_t value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (result.ec == std::errc::result_out_of_range) Raise(Overflow);
    if (result.ptr - digits.data() <= 4) return static_cast<std::int16_t>(value);
    return static_cast<std::int32_t>(value);
}

} // namespace

double Val(std::string_view text) {
    std::string packed(text);
    packed.erase(std::remove_if(packed.begin(), packed.end(), IsBlank), packed.end());
    if (packed.size() > 2 && packed[0] == '&' && (packed[1] == 'H' || packed[1] == 'h'))
        return ParseHexadecimal(std::string_view(packed).substr(2));
    const std::size_t length = DecimalLength(packed);
    return length == 0 ? 0 : ParseDecimal(packed.substr(0, length));
}

bool IsNumeric(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return !text.empty() && DecimalLength(text) == text.size();
}

std::string Str(std::int32_t number) {
    return (number < 0 ? "" : " ") + std::to_string(number);
}

std::string Hex(std::uint32_t number) {
    char digits[8];
    const auto result = std::to_chars(digits, digits + sizeof digits, number, 16);
    std::string text(digits, result.ptr);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text;
}

std::string Format(double number, std::string_view pattern) {
    const std::size_t point = pattern.find('.');
    const std::size_t decimals = point == std::string_view::npos ? 0 : pattern.size() - point - 1;
    const std::string_view whole_pattern = pattern.substr(0, point);
    const double scaled = std::round(std::abs(number) * std::pow(10.0, static_cast<double>(decimals)));
    if (!(scaled < 1e18)) Raise(Overflow);

    std::string digits = std::to_string(static_cast<std::uint64_t>(scaled));
    if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
    std::string whole = digits.substr(0, digits.size() - decimals);
    const auto least = static_cast<std::size_t>(std::count(whole_pattern.begin(), whole_pattern.end(), '0'));
    if (whole == "0") whole.clear();
    if (whole.size() < least) whole.insert(0, least - whole.size(), '0');
    if (whole_pattern.find(',') != std::string_view::npos && whole.size() > 3)
        for (std::size_t at = whole.size() - 3; at > 0; at = at > 3 ? at - 3 : 0) whole.insert(at, 1, ',');
    if (decimals > 0) whole += "." + digits.substr(digits.size() - decimals);
    return (number < 0 && scaled > 0 ? "-" : "") + whole;
}

double Int(double number) {
    return std::floor(number);
}
double Fix(double number) {
    return std::trunc(number);
}
std::int16_t Sgn(double number) {
    return static_cast<std::int16_t>((number > 0) - (number < 0));
}

namespace {

template <typename Whole>
Whole RoundTo(double number) {
    const double floor = std::floor(number);
    const double fraction = number - floor;
    const bool up = fraction > 0.5 || (fraction == 0.5 && std::fmod(floor, 2.0) != 0.0);
    const double rounded = up ? floor + 1 : floor;
    if (!(rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max()))
        Raise(Overflow);
    return static_cast<Whole>(rounded);
}

} // namespace

std::int32_t CLng(double number) {
    return RoundTo<std::int32_t>(number);
}
std::int16_t CInt(double number) {
    return RoundTo<std::int16_t>(number);
}

} // namespace quillon
