// Renewing "On the air" with a catalogue of the world, beside an inverse to each of its airports.
#include "Cockpit.h"
#include "geo/Geodesy.h"
#include "geo/ReceptionRange.h"

#include <GeographicLib/Geodesic.hpp>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <vector>

using namespace quillon;

namespace {

constexpr int Airfields = 6'000;
constexpr int Feeds = 100'000;

/// Evenly over 30 degrees of latitude and 80 of longitude, so that seven of them are within 50 miles.
GeoPoint PlaceOf(int airport) {
    return GeoPoint::At(30 + airport / 100 * 0.5, -(50 + airport % 100 * 0.8));
}

std::string CodeOf(int airport) {
    return "K" + std::to_string(10'000 + airport);
}

std::string AirportsOfTheWorld() {
    std::string lines = "ICAO,latitude,longitude\r\nCYYZ,N43*00.00,W079*00.00\r\n";
    for (int airport = 0; airport < Airfields; ++airport) {
        const GeoPoint place = PlaceOf(airport);
        const auto minutes = [](double degrees) { return static_cast<int>(degrees * 60 + 0.5); };
        char line[80];
        std::snprintf(line, sizeof line, ",N%02d*%02d.00,W%03d*%02d.00\r\n", minutes(place.latitude) / 60,
                      minutes(place.latitude) % 60, minutes(-place.longitude) / 60,
                      minutes(-place.longitude) % 60);
        lines += CodeOf(airport) + line;
    }
    return lines;
}

/// None has a frequency, so that none repeats another's; the channels that are free go to the first ones.
std::string FeedsOfTheWorld() {
    std::string text;
    for (int feed = 1; feed < Feeds; ++feed)
        text += CodeOf(feed * 7 % Airfields) + "|Springfield - Tower and Ground|http://feeds.example/" +
                std::to_string(feed) + "|\r\n";
    return text;
}

void Renew(benchmark::State& state) {
    Cockpit<> cockpit(FeedsOfTheWorld(), AirportsOfTheWorld());
    cockpit.program.Run(Command::OnTheAir);
    for (auto _ : state) cockpit.program.PollOnTheAir();
    const auto& form = cockpit.program.State().on_the_air;
    if (form.Rows.size() < 100) state.SkipWithError("too few feeds in range");
    state.counters["rows"] = static_cast<double>(form.Rows.size());
}
BENCHMARK(Renew)->Name("on the air/Quillon")->Unit(benchmark::kMillisecond);

void Inverses(benchmark::State& state) {
    const double axis = Geodesy::eMajor(Wgs84);
    const GeographicLib::Geodesic earth(axis, (axis - Geodesy::eMinor(Wgs84)) / axis);
    std::vector<GeoPoint> places;
    for (int airport = 0; airport < Airfields; ++airport) places.push_back(PlaceOf(airport));
    for (auto _ : state)
        for (const GeoPoint& place : places) {
            double metres = 0, azimuth = 0, back = 0;
            earth.Inverse(43.01, -79.01, place.latitude, place.longitude, metres, azimuth, back);
            benchmark::DoNotOptimize(metres);
        }
}
BENCHMARK(Inverses)->Name("on the air/GeographicLib")->Unit(benchmark::kMillisecond);

} // namespace
