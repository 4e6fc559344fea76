#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace practice {

/// "118.70" as the radio's word, 0x1870. Nothing unless the text is "1", two digits, a point and two or three
/// digits; the third decimal is dropped, as radios do.
std::optional<std::uint16_t> RadioWord(std::string_view frequency);

/// A radio's word as "###.##".
std::string FrequencyText(std::uint16_t word);

/// An unsigned number, decimal or, after "0x", hexadecimal; nothing if the whole text is not one.
std::optional<std::uint32_t> NumberOf(std::string_view text);
/// A decimal fraction; nothing if the text is not one.
std::optional<double> DecimalOf(std::string_view text);

/// An angle as two 32-bit numbers: whole units, and a fraction of 1/429496729 units that is added away from
/// zero.
struct Angle {
    std::int32_t low;
    std::int32_t high;
};

/// Whole units in one degree: metres from the equator, and 2^32 to a full turn.
inline constexpr double LatitudeUnits = 10001750.0 / 90;
inline constexpr double LongitudeUnits = 4294967296.0 / 360;

/// Degrees in [-90, 90] or [-180, 180].
Angle AngleOf(double degrees, double units);
double DegreesOf(Angle angle, double units);

} // namespace practice
