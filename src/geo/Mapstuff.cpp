#include "geo/Mapstuff.h"

#include "geo/Geodesy.h"
#include "runtime/RuntimeError.h"

#include <cmath>

namespace quillon {

namespace {

constexpr double Pi = 3.14159265358979;
constexpr double TwoPi = 6.28318530717958;

constexpr double CoincidenceLimit = 1e-6;  // degrees
constexpr double ConvergenceLimit = 5e-14; // radians
constexpr int PassLimit = 101;

struct ReducedLatitude {
    double sin, cos;
};

/// Latitude on the auxiliary sphere. Sine and cosine come from the tangent, without going through the angle.
ReducedLatitude Reduce(double latitude, double f) {
    const double tan = (1 - f) * std::tan(DegToRad(latitude));
    const double cos = 1 / std::sqrt(1 + Square(tan));
    return {tan * cos, cos};
}

/// The great circle arc between two points of the auxiliary sphere, for one difference of their longitudes.
struct Arc {
    double sin_sigma, cos_sigma, sigma; // its length
    double sin_alpha, cos2_alpha;       // its azimuth at the equator; the cosine squared
    double cos_2sigma_m;                // of twice the arc from the equator to its middle
};

/// The geodesic in the notation of Vincenty's paper.
class Geodesic {
  public:
    Geodesic(const GeodesicProblem& problem, double f)
        : f_(f), difference_(DegToRad(problem.longitude2) - DegToRad(problem.longitude1)) {
        const ReducedLatitude u1 = Reduce(problem.latitude1, f);
        const ReducedLatitude u2 = Reduce(problem.latitude2, f);
        if (u1.sin == 0 && u2.sin == 0) Raise(DivisionByZero);
        cos_cos_ = u1.cos * u2.cos;
        cos_sin_ = u1.cos * u2.sin;
        sin_cos_ = u1.sin * u2.cos;
        sin_sin_ = u1.sin * u2.sin;
        cos1_ = u1.cos;
        cos2_ = u2.cos;
    }

    /// Finds `lambda` and its arc; returns false if the iteration does not converge.
    bool Converge() {
        lambda_ = difference_;
        for (int pass = 1; pass < PassLimit; ++pass) {
            const double before = lambda_;
            arc_ = ArcAt(before);
            lambda_ = NextLambda(arc_);
            if (std::abs(before - lambda_) <= ConvergenceLimit) return true;
        }
        return false;
    }

    double Distance(double a, double b) const {
        const double u2 = arc_.cos2_alpha * (a * a - b * b) / (b * b);
        const double A = 1 + u2 / 16384 * (4096 + u2 * (-768 + u2 * (320 - 175 * u2)));
        const double B = u2 / 1024 * (256 + u2 * (-128 + u2 * (74 - 47 * u2)));
        const double m = arc_.cos_2sigma_m;
        const double delta_sigma = B * arc_.sin_sigma *
                                   (m + B / 4 *
                                            ((2 * m * m - 1) * arc_.cos_sigma -
                                             B / 6 * m * (4 * Square(arc_.sin_sigma) - 3) * (4 * m * m - 3)));
        return b * A * (arc_.sigma - delta_sigma);
    }

    void Azimuths(double& forward, double& back) const {
        const double sin = std::sin(lambda_);
        const double cos = std::cos(lambda_);
        forward = RadToDeg(ModTwoPi(Atan2Positive(cos2_ * sin, cos_sin_ - sin_cos_ * cos)));
        back = RadToDeg(ModTwoPi(Atan2Positive(cos1_ * sin, cos_sin_ * cos - sin_cos_) - Pi));
    }

  private:
    Arc ArcAt(double lambda) const {
        const double sin = std::sin(lambda);
        const double cos = std::cos(lambda);
        Arc arc;
        arc.sin_sigma = std::sqrt(Square(cos2_ * sin) + Square(cos_sin_ - sin_cos_ * cos));
        if (arc.sin_sigma == 0) Raise(DivisionByZero);
        arc.cos_sigma = sin_sin_ + cos_cos_ * cos;
        // From both: the cosine alone cannot tell near points apart.
        arc.sigma = std::atan2(arc.sin_sigma, arc.cos_sigma);
        arc.sin_alpha = cos_cos_ * sin / arc.sin_sigma;
        arc.cos2_alpha = 1 - Square(arc.sin_alpha);
        // Along the equator (0, or less by rounding) the middle has next to no weight.
        arc.cos_2sigma_m = arc.cos2_alpha > 0 ? arc.cos_sigma - 2 * sin_sin_ / arc.cos2_alpha : 0;
        return arc;
    }

    double NextLambda(const Arc& arc) const {
        const double C = f_ / 16 * arc.cos2_alpha * (4 + f_ * (4 - 3 * arc.cos2_alpha));
        const double m = arc.cos_2sigma_m;
        return difference_ + (1 - C) * f_ * arc.sin_alpha *
                                 (arc.sigma + C * arc.sin_sigma * (m + C * arc.cos_sigma * (2 * m * m - 1)));
    }

    double f_;
    double difference_; // of the longitudes
    double cos1_ = 0, cos2_ = 0;
    double cos_cos_ = 0, cos_sin_ = 0, sin_cos_ = 0,
           sin_sin_ = 0; // of the first point's latitude, of the second's
    double lambda_ = 0;
    Arc arc_{};
};

bool Coincide(const GeodesicProblem& problem) {
    return std::abs(problem.latitude1 - problem.latitude2) < CoincidenceLimit &&
           std::abs(problem.longitude1 - problem.longitude2) < CoincidenceLimit;
}

} // namespace

double ArcSin(double x) {
    if (std::abs(x) < 1) return std::asin(x);
    return (x == 1 ? 2 : 6) * std::atan(1.0);
}

double ArcCos(double x) {
    if (std::abs(x) < 1) return std::acos(x);
    return x == 1 ? 0 : 4 * std::atan(1.0);
}

double Atan2Positive(double y, double x) {
    if (x == 0) return y > 0 ? Pi / 2 : y < 0 ? 9.42477796076937 / 2 : 0;
    const double angle = std::atan(y / x);
    if (x < 0) return angle + Pi;
    return y < 0 ? angle + TwoPi : angle;
}

double ModFloor(double x, double m) {
    return x - std::floor(x / m) * m;
}

double ModTwoPi(double x) {
    return ModFloor(x, TwoPi);
}

GeodesyCode ValidatePoint(double lat, double lon, double& mirrored_lat, double& turned_lon) {
    mirrored_lat = turned_lon = 180;
    if (!(std::abs(lon) <= 180)) return GeodesyCode::LongitudeOutside;
    if (!(std::abs(lat) <= 90)) return GeodesyCode::LatitudeOutside;
    mirrored_lat = -lat;
    turned_lon = ModFloor(lon + 180, 180);
    return GeodesyCode::Success;
}

bool PointsInvalid(double lat1, double lon1, double lat2, double lon2) {
    double lat = 0;
    double lon = 0;
    return ValidatePoint(lat1, lon1, lat, lon) != GeodesyCode::Success ||
           ValidatePoint(lat2, lon2, lat, lon) != GeodesyCode::Success;
}

GeodesyCode GetEllipsoid(std::int16_t index, EllipsoidRecord& ellipsoid) {
    if (index < 1 || index > Geodesy::Choices()) return GeodesyCode::EllipsoidUnknown;
    ellipsoid = {Geodesy::eMajor(index), Geodesy::eMinor(index), Geodesy::ename(index)};
    return GeodesyCode::Success;
}

GeodesyCode InverseGeodesic(GeodesicProblem& problem) {
    if (PointsInvalid(problem.latitude1, problem.longitude1, problem.latitude2, problem.longitude2))
        return GeodesyCode::PointInvalid;
    if (Coincide(problem)) {
        problem.forward_azimuth = problem.back_azimuth = problem.distance = 0;
        return GeodesyCode::PointsCoincide;
    }
    EllipsoidRecord ellipsoid;
    if (const GeodesyCode code = GetEllipsoid(problem.ellipsoid, ellipsoid); code != GeodesyCode::Success)
        return code;

    Geodesic geodesic(problem, (ellipsoid.a - ellipsoid.b) / ellipsoid.a);
    if (!geodesic.Converge()) return GeodesyCode::NoConvergence;
    problem.distance = geodesic.Distance(ellipsoid.a, ellipsoid.b);
    geodesic.Azimuths(problem.forward_azimuth, problem.back_azimuth);
    return GeodesyCode::Success;
}

} // namespace quillon
