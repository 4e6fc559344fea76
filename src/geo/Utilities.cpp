#include "geo/Utilities.h"

#include "runtime/Number.h"

#include <cmath>

namespace quillon {

namespace {

constexpr double AlmostSixty = 59.99999;

} // namespace

double DmsToDegrees(const DmsRecord& angle) {
    double degrees = std::abs(angle.degrees);
    double minutes = std::abs(angle.minutes);
    double seconds = std::abs(angle.seconds);
    if (seconds >= AlmostSixty) {
        minutes += 1;
        seconds = 0;
    }
    if (minutes >= AlmostSixty) {
        degrees += 1;
        minutes = 0;
    }
    return (degrees + minutes / 60 + seconds / 3600) * angle.sign;
}

std::int16_t DegreesToDms(double value, DmsRecord& angle) {
    const double magnitude = std::abs(value);
    double degrees = Fix(magnitude);
    double minutes = (magnitude - degrees) * 60;
    double seconds = (minutes - Fix(minutes)) * 60;
    // Both are below 60 here, so one carry is enough.
    if (seconds >= AlmostSixty) {
        seconds -= 60;
        minutes += 1;
    }
    if (minutes >= AlmostSixty) {
        minutes -= 60;
        degrees += 1;
    }
    angle = {degrees, Fix(minutes), seconds, Sgn(value)};
    return angle.sign;
}

} // namespace quillon
