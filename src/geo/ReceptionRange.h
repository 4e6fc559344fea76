#pragma once

#include "geo/Airports.h"
#include "geo/Mapstuff.h"
#include "geo/Utilities.h"
#include "runtime/ErrorTrap.h"
#include "state/AirportList.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace quillon {

/// Converts degrees such as "-33.9461" to degrees, minutes and seconds: "-33.56.48". Cuts `value` to its first
/// 7 characters. The seconds come from minutes rounded to one decimal, so they are a multiple of 6.
/// `startup_step` says what is being done. Raises error 5 for a text without a ".".
std::string Convert2DMS(std::string& value, std::string& startup_step);

/// A position in degrees as texts; always with a decimal point.
struct PositionTexts {
    std::string& latitude;
    std::string& longitude;
};

/// Latitude and longitude in degrees, as the distance on screen is measured from. Cuts the texts to 7
/// characters. `startup_step` says what is being done.
std::pair<double, double> AircraftDegrees(const PositionTexts& aircraft, std::string& startup_step);

inline constexpr std::int16_t Wgs84 = 22; ///< the ellipsoid's number in `Geodesy`

/// Whole nautical miles, computed from whole statute miles.
std::int32_t WholeNauticalMiles(double metres);

/// How far an airport is, and whether that is in range.
struct RangeReading {
    enum class Distance {
        NotMeasured, ///< no feed, an error, or points between which there is no distance
        Unknown,     ///< the airport or the position is not known
        Measured,
    };

    Distance distance = Distance::NotMeasured;
    std::int32_t nautical_miles = 0; ///< whole ones
    std::optional<bool> in_range;    ///< nothing: not decided
};

/// Measures how far the aircraft is from airports.
class ReceptionRange {
  public:
    ReceptionRange(const AirportList& airports, ErrorTrap& trap) : airports_(airports), trap_(trap) {}

    /// The airport to measure to, and where the search for its line begins (see FindAirport).
    struct Airport {
        const std::string& icao; ///< empty: no feed
        std::int32_t& search_start;
        bool known = true; ///< false: it is not looked up
    };

    /// Distance from the airport to the aircraft; in range up to `range` nautical miles, 0 is always in range.
    /// Cuts the position's texts to 7 characters. Reports errors.
    RangeReading CalcDistance(const Airport& airport, const PositionTexts& aircraft, std::int16_t range);

  private:
    void Measure(const Airport& airport, const PositionTexts& aircraft, std::int16_t range,
                 RangeReading& reading);
    std::optional<std::size_t> FindAirport(const Airport& airport) const;
    GeodesicProblem ProblemTo(const AirportPosition& airport, const PositionTexts& aircraft);

    const AirportList& airports_;
    ErrorTrap& trap_;
};

} // namespace quillon
