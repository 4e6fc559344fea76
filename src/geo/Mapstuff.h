#pragma once

#include <cstdint>
#include <string_view>

namespace quillon {

/// How a geodesic calculation ended.
enum class GeodesyCode : std::int16_t {
    Success = 513,
    LongitudeOutside = 514, ///< beyond +-180 degrees
    LatitudeOutside = 515,  ///< beyond +-90 degrees
    PointInvalid = 517,
    EllipsoidUnknown = 520,
    PointsCoincide = 537,
    NoConvergence = 539, ///< nearly opposite points
};

/// Arc sine and arc cosine in radians. For 1, pi/2 and 0; for anything else outside (-1, 1), 3 pi/2 and pi.
double ArcSin(double x);
double ArcCos(double x);

/// Angle of the vector (x, y) in radians, [0, 2 pi); 0 for the null vector.
double Atan2Positive(double y, double x);

/// x reduced to [0, m) for a positive m, for negative x too.
double ModFloor(double x, double m);
double ModTwoPi(double x);

constexpr double DegToRad(double degrees) {
    return degrees * 0.017453292519943278;
}
constexpr double RadToDeg(double radians) {
    return radians * 57.29577951308238;
}
constexpr double Square(double x) {
    return x * x;
}

/// Whether a point (degrees) lies on the globe: Success, LatitudeOutside or LongitudeOutside; the longitude's
/// code if both are outside. The two results are the latitude mirrored at the equator and the longitude turned
/// by 180 degrees, in [0, 180); both 180 if the point is invalid.
GeodesyCode ValidatePoint(double lat, double lon, double& mirrored_lat, double& turned_lon);

/// Whether either of two points (degrees) is invalid.
bool PointsInvalid(double lat1, double lon1, double lat2, double lon2);

struct EllipsoidRecord {
    double a = 0; ///< semi-major axis, metres
    double b = 0; ///< semi-minor axis, metres
    std::string_view name;
};

/// Axes and name of an ellipsoid by its number in `Geodesy`. Returns EllipsoidUnknown for any other number and
/// leaves the record unchanged.
GeodesyCode GetEllipsoid(std::int16_t index, EllipsoidRecord& ellipsoid);

struct GeodesicProblem {
    double latitude1 = 0;  ///< degrees, north positive, [-90, 90]
    double longitude1 = 0; ///< degrees, east positive, [-180, 180]
    double latitude2 = 0;
    double longitude2 = 0;
    double forward_azimuth = 0; ///< result: direction of point 2 at point 1, degrees, [0, 360)
    double back_azimuth = 0;    ///< result: direction of point 1 at point 2, degrees, [0, 360)
    double distance = 0;        ///< result: metres
    std::int16_t ellipsoid = 0; ///< number in `Geodesy`
};

/// Geodesic distance and azimuths between two points on one ellipsoid, by Vincenty's inverse method (Survey
/// Review XXIII, 176, 1975), good to half a millimetre. Points within a millionth of a degree have distance and
/// azimuths 0 and the code PointsCoincide; any code but this and Success leaves the results unchanged. Raises
/// error 11 for two points on the equator, where the formula divides by zero.
GeodesyCode InverseGeodesic(GeodesicProblem& problem);

} // namespace quillon
