#pragma once

#include "geo/ReceptionRange.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace quillon {

/// A point of the globe.
struct GeoPoint {
    double latitude;              ///< degrees, north positive
    double longitude;             ///< degrees, east positive
    std::array<double, 3> normal; ///< unit vector to the zenith

    static GeoPoint At(double latitude, double longitude);
};

/// The aircraft's point as distances on screen are measured from it; nothing if the position is not known.
std::optional<GeoPoint> AircraftPoint(std::string latitude, std::string longitude);

/// How far and in which direction an airport lies.
struct Sight {
    double metres;
    double bearing; ///< degrees from true north, [0, 360)

    std::int32_t NauticalMiles() const;
};

/// The airport as seen from the aircraft, 0 for points that coincide. Nothing for nearly opposite points.
std::optional<Sight> Look(const GeoPoint& aircraft, const GeoPoint& airport);

/// The length of the arc between two zeniths, radians. On the WGS-84 ellipsoid a radian of it stands for
/// ShortestRadian to LongestRadian metres, its least and largest radius of curvature.
double ArcBetween(const GeoPoint& a, const GeoPoint& b);
inline constexpr double ShortestRadian = 6'335'439;
inline constexpr double LongestRadian = 6'399'594;

} // namespace quillon
