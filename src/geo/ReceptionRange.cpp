#include "geo/ReceptionRange.h"

#include "geo/Airports.h"
#include "runtime/Number.h"
#include "runtime/Text.h"
#include "state/FeedMarkers.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr std::int16_t Wgs84 = 22;
constexpr const char* NetRadio = "Net Radio";

/// The angle of a text "D.MM.SS". The sign is that of the whole degrees: between -1 and 0 degrees the angle is
/// 0.
DmsRecord AngleOf(const std::string& text) {
    const std::ptrdiff_t first = InStr(text, ".");
    const std::ptrdiff_t second = InStr(first + 1, text, ".");
    const double degrees = Val(Left(text, first - 1));
    return {degrees, Val(Mid(text, first + 1, second - first - 1)), Val(Mid(text, second + 1, 2)),
            Sgn(degrees)};
}

/// Whole nautical miles as shown, with "," between the thousands. They are made from whole statute miles.
std::string NauticalText(double metres) {
    const std::int32_t miles = CLng(metres) / 1609;
    const std::string text = Format(miles * 0.8689741, "#,###,###");
    return text.empty() ? "0" : text;
}

double WithoutCommas(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), ','), text.end());
    return Val(text);
}

} // namespace

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

void ReceptionRange::CalcDistance() {
    trap_.Run("CalcDistance Error", Icon::Exclamation, [this] { Measure(); });
}

void ReceptionRange::Measure() {
    if (state_.feed.FeedIcao.empty()) return;
    if (state_.range.ReceptionRange == 0) {
        state_.range.InRange = true;
        state_.form.Label2.ToolTipText = " Range Disabled ";
    }
    state_.StartupStep = "Calculating Departure lat and lon";
    const bool found = FindFeedAirport();
    AirportPosition airport;
    if (found)
        airport =
            ParseAirport(state_.Airports.Lines()[static_cast<std::size_t>(state_.range.AirportSearchStart)]);

    state_.StartupStep = "Calculating Arrival lat and lon";
    if (!found || Val(state_.radio.AircraftLatitudeText) == 0) {
        ShowNoDistance();
        return;
    }
    GeodesicProblem problem = ProblemTo(airport.latitude, airport.longitude);
    const GeodesyCode code = InverseGeodesic(problem);
    state_.StartupStep = "Display flight distance";
    if (code == GeodesyCode::Success) ShowDistance(problem.distance);
    state_.StartupStep.clear();
    state_.MessageText.clear();
}

/// Leaves the index of the airport's line in `AirportSearchStart`. The list's first line is a heading, never an
/// airport, and the search does not go back to lines before the start.
bool ReceptionRange::FindFeedAirport() {
    if (state_.form.Label2.Caption == NetRadio) return false;
    std::int32_t& start = state_.range.AirportSearchStart;
    start = std::max(start, 1);
    const auto found = state_.Airports.Find(state_.feed.FeedIcao, static_cast<std::size_t>(start));
    if (found) start = static_cast<std::int32_t>(*found);
    return found.has_value();
}

void ReceptionRange::ShowNoDistance() {
    state_.StartupStep = "sLatitude = 0 or bFoundAirport = False";
    std::string& caption = state_.form.Label2.Caption;
    if (RadioMarker(state_.feed.FeedCity) > 0)
        caption = NetRadio;
    else
        caption = state_.feed.WplMarker < 1 ? "ICAO not found!" : "Windows PlayList";
}

GeodesicProblem ReceptionRange::ProblemTo(const DmsRecord& airport_latitude,
                                          const DmsRecord& airport_longitude) {
    std::string& step = state_.StartupStep;
    RadioState& radio = state_.radio;
    step = "strCurrentLat = " + radio.AircraftLatitudeText;
    const std::string latitude = Convert2DMS(radio.AircraftLatitudeText, step);
    step = "strCurrentLon = " + radio.AircraftLongitudeText;
    const std::string longitude = Convert2DMS(radio.AircraftLongitudeText, step);

    step = "Calc Destination Latitude - " + latitude;
    const DmsRecord aircraft_latitude = AngleOf(latitude);
    step = "Calc Destination Longitude - " + longitude;
    const DmsRecord aircraft_longitude = AngleOf(longitude);

    step = "Calculating flight distance";
    GeodesicProblem problem;
    problem.latitude1 = DmsToDegrees(airport_latitude);
    problem.longitude1 = DmsToDegrees(airport_longitude);
    problem.latitude2 = DmsToDegrees(aircraft_latitude);
    problem.longitude2 = DmsToDegrees(aircraft_longitude);
    problem.ellipsoid = Wgs84;
    return problem;
}

void ReceptionRange::ShowDistance(double metres) {
    const std::int16_t range = state_.range.ReceptionRange;
    Label& label = state_.form.Label2;
    const std::string nautical = NauticalText(metres);
    const bool in_range = range == 0 || WithoutCommas(nautical) <= range;
    state_.range.InRange = in_range;
    label.Caption = nautical + " NM";
    if (!in_range) label.Caption += state_.form.optManual() ? " (Manual Mode)" : " (Out of Range)";
    label.ToolTipText =
        range == 0 ? " Range Disabled " : " Range set at " + std::to_string(range) + " Nautical Miles ";
}

} // namespace quillon
