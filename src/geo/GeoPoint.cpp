#include "geo/GeoPoint.h"

#include "geo/Mapstuff.h"
#include "runtime/Number.h"

#include <algorithm>
#include <cmath>

namespace quillon {

GeoPoint GeoPoint::At(double latitude, double longitude) {
    const double phi = DegToRad(latitude);
    const double lambda = DegToRad(longitude);
    return {latitude,
            longitude,
            {std::cos(phi) * std::cos(lambda), std::cos(phi) * std::sin(lambda), std::sin(phi)}};
}

std::optional<GeoPoint> AircraftPoint(std::string latitude, std::string longitude) {
    if (Val(latitude) == 0) return std::nullopt;
    std::string step;
    const auto [north, east] = AircraftDegrees({latitude, longitude}, step);
    return GeoPoint::At(north, east);
}

std::int32_t Sight::NauticalMiles() const {
    return WholeNauticalMiles(metres);
}

std::optional<Sight> Look(const GeoPoint& aircraft, const GeoPoint& airport) {
    GeodesicProblem problem{aircraft.latitude, aircraft.longitude, airport.latitude, airport.longitude};
    problem.ellipsoid = Wgs84;
    const bool on_equator = aircraft.latitude == 0 && airport.latitude == 0; // where the method has no answer
    if (on_equator) problem.latitude1 = 1e-9;
    const GeodesyCode code = InverseGeodesic(problem);
    if (code != GeodesyCode::Success && code != GeodesyCode::PointsCoincide) return std::nullopt;
    return Sight{problem.distance, problem.forward_azimuth};
}

/// Accurate for short arcs, too, of which the cosine tells little.
double ArcBetween(const GeoPoint& a, const GeoPoint& b) {
    double chord2 = 0;
    for (std::size_t axis = 0; axis < a.normal.size(); ++axis)
        chord2 += Square(a.normal[axis] - b.normal[axis]);
    return 2 * std::asin(std::min(1.0, std::sqrt(chord2) / 2));
}

} // namespace quillon
