#include "Units.h"

#include "runtime/Number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace practice {

namespace {

constexpr double FractionUnits = 429496729.0;

template <typename Number>
std::optional<Number> Whole(std::string_view digits, int base) {
    Number number{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, base);
    if (error != std::errc() || end != digits.data() + digits.size()) return {};
    return number;
}

} // namespace

std::optional<std::uint16_t> RadioWord(std::string_view frequency) {
    if (frequency.size() != 6 && frequency.size() != 7) return {};
    if (frequency[0] != '1' || frequency[3] != '.') return {};
    const auto digit = [](char c) { return c >= '0' && c <= '9'; };
    const std::string digits = std::string(frequency.substr(1, 2)).append(frequency.substr(4));
    if (!std::all_of(digits.begin(), digits.end(), digit)) return {};
    return Whole<std::uint16_t>(std::string_view(digits).substr(0, 4), 16);
}

std::string FrequencyText(std::uint16_t word) {
    std::string text = quillon::Hex(0x10000U + word); // "1" and four digits
    return text.insert(3, ".");
}

std::optional<std::uint32_t> NumberOf(std::string_view text) {
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    return Whole<std::uint32_t>(text.substr(hexadecimal ? 2 : 0), hexadecimal ? 16 : 10);
}

std::optional<double> DecimalOf(std::string_view text) {
    if (!quillon::IsNumeric(text)) return {};
    return quillon::Val(text);
}

Angle AngleOf(double degrees, double units) {
    const double value = degrees * units;
    const double whole = std::min(std::trunc(value), double{std::numeric_limits<std::int32_t>::max()});
    const double beyond = whole > 0 ? value - whole : whole - value;
    return {static_cast<std::int32_t>(std::round(beyond * FractionUnits)), static_cast<std::int32_t>(whole)};
}

double DegreesOf(Angle angle, double units) {
    const double beyond = angle.low / FractionUnits;
    return (angle.high > 0 ? angle.high + beyond : angle.high - beyond) / units;
}

} // namespace practice
