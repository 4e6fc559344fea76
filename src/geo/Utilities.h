#pragma once

#include <cstdint>

namespace quillon {

/// An angle as degrees, minutes and seconds. The fields are magnitudes; the sign stands for the whole angle.
struct DmsRecord {
    double degrees = 0;
    double minutes = 0;
    double seconds = 0;
    std::int16_t sign = 0; ///< -1, 0 or +1; 0 makes the angle 0 whatever the fields say
};

/// Decimal degrees of the angle. Seconds, then minutes, of 59.99999 or more round up to the next minute or
/// degree.
double DmsToDegrees(const DmsRecord& angle);

/// Splits decimal degrees: whole degrees and minutes, and seconds below 59.99999. Returns the sign.
std::int16_t DegreesToDms(double value, DmsRecord& angle);

} // namespace quillon
