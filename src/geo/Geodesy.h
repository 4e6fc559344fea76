#pragma once

#include <cstdint>
#include <string_view>

namespace quillon {

/// Reference ellipsoids, numbered 1 to `Choices`, and geodetic datums, numbered 1 to `DChoices`, with the
/// ellipsoid that each datum uses. Any other index raises error 9. The tables hold no datum shifts.
class Geodesy {
  public:
    static double eMajor(std::int16_t index);          ///< semi-major axis, metres
    static double eMinor(std::int16_t index);          ///< semi-minor axis, metres
    static double eflat(std::int16_t index);           ///< inverse flattening, major / (major - minor)
    static std::string_view ename(std::int16_t index); ///< the ellipsoid's name
    static std::int16_t Choices();
    static std::int16_t DChoices();
    static std::string_view dName(std::int16_t index); ///< the datum's name
    static std::int16_t dNumber(std::int16_t index);   ///< the datum's ellipsoid
};

} // namespace quillon
