#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace practice {

/// "118.70" as the radio's word 0x1870. Nothing for a text that is not "1", two digits, a point and two or
/// three digits; the third decimal is dropped, as radios do.
std::optional<std::uint16_t> RadioWord(std::string_view frequency);

/// The frequency of a radio's word, "###.##".
std::string FrequencyText(std::uint16_t word);

/// Numbers in decimal form or, after "0x", in hexadecimal.
std::optional<std::uint32_t> NumberOf(std::string_view text);
std::optional<double> DecimalOf(std::string_view text);

/// An angle as two 32-bit numbers. Position readers take `low` as a fraction in units of 1/429496729 that lies
/// beyond `high`, away from zero.
struct Angle {
    std::int32_t low;
    std::int32_t high;
};

/// Units of the angles' whole part in one degree: metres from the equator, and turns of 2^32.
inline constexpr double LatitudeUnits = 10001750.0 / 90;
inline constexpr double LongitudeUnits = 4294967296.0 / 360;

/// Degrees within [-90, 90] and [-180, 180].
Angle AngleOf(double degrees, double units);
double DegreesOf(Angle angle, double units);

} // namespace practice
