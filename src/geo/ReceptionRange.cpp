#include "geo/ReceptionRange.h"

#include "runtime/Number.h"
#include "runtime/Text.h"

#include <algorithm>

namespace quillon {

namespace {

/// The angle of a text "D.MM.SS". The whole degrees give the sign: between -1 and 0 degrees the angle is 0.
DmsRecord AngleOf(const std::string& text) {
    const std::ptrdiff_t first = InStr(text, ".");
    const std::ptrdiff_t second = InStr(first + 1, text, ".");
    const double degrees = Val(Left(text, first - 1));
    return {degrees, Val(Mid(text, first + 1, second - first - 1)), Val(Mid(text, second + 1, 2)),
            Sgn(degrees)};
}

} // namespace

std::int32_t WholeNauticalMiles(double metres) {
    const std::int32_t miles = CLng(metres) / 1609;
    return CLng(Val(Format(miles * 0.8689741, "0")));
}

std::string Convert2DMS(std::string& value, std::string& startup_step) {
    value = Left(value, 7);
    startup_step = "Calc Degree";
    const std::ptrdiff_t point = InStr(value, ".");
    const std::string degrees = Left(value, point - 1);
    startup_step = "Calc Min";
    const std::string minutes = Format(Val(Mid(value, point)) * 60, "00.0");
    startup_step = "Calc Sec";
    const std::string seconds = Format(Int(Val(Mid(minutes, InStr(minutes, "."))) * 60), "00");
    std::string result = degrees + "." + Format(Int(Val(minutes)), "00") + "." + seconds;
    startup_step = "Convert2DMS = " + result;
    return result;
}

RangeReading ReceptionRange::CalcDistance(const Airport& airport, const PositionTexts& aircraft,
                                          std::int16_t range) {
    RangeReading reading;
    trap_.Run("CalcDistance Error", Icon::Exclamation, [&] { Measure(airport, aircraft, range, reading); });
    return reading;
}

void ReceptionRange::Measure(const Airport& airport, const PositionTexts& aircraft, std::int16_t range,
                             RangeReading& reading) {
    if (airport.icao.empty()) return;
    if (range == 0) reading.in_range = true;
    trap_.StartupStep() = "Calculating Departure lat and lon";
    const auto line = FindAirport(airport);
    AirportPosition position;
    if (line) position = ParseAirport(airports_.Lines()[*line]);
    trap_.StartupStep() = "Calculating Arrival lat and lon";
    if (!line || Val(aircraft.latitude) == 0) {
        trap_.StartupStep() = "sLatitude = 0 or bFoundAirport = False";
        reading.distance = RangeReading::Distance::Unknown;
        return;
    }
    GeodesicProblem problem = ProblemTo(position, aircraft);
    const GeodesyCode code = InverseGeodesic(problem);
    trap_.StartupStep() = "Display flight distance";
    if (code == GeodesyCode::Success) {
        reading.distance = RangeReading::Distance::Measured;
        reading.nautical_miles = WholeNauticalMiles(problem.distance);
        reading.in_range = range == 0 || reading.nautical_miles <= range;
    }
    trap_.ClearTexts();
}

/// Sets `search_start` to the line found. The first line is a heading, and the search never goes back before
/// the start.
std::optional<std::size_t> ReceptionRange::FindAirport(const Airport& airport) const {
    if (!airport.known) return std::nullopt;
    std::int32_t& start = airport.search_start;
    start = std::max(start, 1);
    const auto found = airports_.Find(airport.icao, static_cast<std::size_t>(start));
    if (found) start = static_cast<std::int32_t>(*found);
    return found;
}

GeodesicProblem ReceptionRange::ProblemTo(const AirportPosition& airport, const PositionTexts& aircraft) {
    const auto [latitude, longitude] = AircraftDegrees(aircraft, trap_.StartupStep());
    trap_.StartupStep() = "Calculating flight distance";
    GeodesicProblem problem;
    problem.latitude1 = DmsToDegrees(airport.latitude);
    problem.longitude1 = DmsToDegrees(airport.longitude);
    problem.latitude2 = latitude;
    problem.longitude2 = longitude;
    problem.ellipsoid = Wgs84;
    return problem;
}

std::pair<double, double> AircraftDegrees(const PositionTexts& aircraft, std::string& step) {
    step = "strCurrentLat = " + aircraft.latitude;
    const std::string latitude = Convert2DMS(aircraft.latitude, step);
    step = "strCurrentLon = " + aircraft.longitude;
    const std::string longitude = Convert2DMS(aircraft.longitude, step);

    step = "Calc Destination Latitude - " + latitude;
    const DmsRecord aircraft_latitude = AngleOf(latitude);
    step = "Calc Destination Longitude - " + longitude;
    return {DmsToDegrees(aircraft_latitude), DmsToDegrees(AngleOf(longitude))};
}

} // namespace quillon
