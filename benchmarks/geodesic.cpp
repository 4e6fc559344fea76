// Geodesic distances: Quillon's, GeographicLib's and PROJ's on the same ellipsoid.
#include "geo/AirportPositions.h"
#include "geo/Geodesy.h"
#include "geo/Mapstuff.h"

#include <GeographicLib/Geodesic.hpp>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <geodesic.h>
#include <random>
#include <vector>

using namespace quillon;

namespace {

constexpr std::size_t Count = 100'000;

const double Axis = Geodesy::eMajor(Wgs84);
const double Flattening = (Axis - Geodesy::eMinor(Wgs84)) / Axis;

/// Random pairs from all over the globe; of nearly opposite points Vincenty's method has no answer.
const std::vector<GeodesicProblem>& Pairs() {
    static const std::vector<GeodesicProblem> pairs = [] {
        constexpr double NearlyOpposite = 179; // degrees of arc
        const GeographicLib::Geodesic earth(Axis, Flattening);
        std::mt19937_64 random(1);
        std::uniform_real_distribution<double> latitude(-90, 90);
        std::uniform_real_distribution<double> longitude(-180, 180);
        std::vector<GeodesicProblem> made;
        while (made.size() < Count) {
            GeodesicProblem pair{latitude(random), longitude(random), latitude(random), longitude(random)};
            pair.ellipsoid = Wgs84;
            double metres = 0;
            const double arc =
                earth.Inverse(pair.latitude1, pair.longitude1, pair.latitude2, pair.longitude2, metres);
            if (arc < NearlyOpposite) made.push_back(pair);
        }
        return made;
    }();
    return pairs;
}

/// The same figures of every pair: distance and both azimuths.
template <typename Solve>
void ForEachPair(benchmark::State& state, Solve solve) {
    double largest = 0;
    for (auto _ : state)
        for (GeodesicProblem pair : Pairs()) benchmark::DoNotOptimize(solve(pair));
    for (GeodesicProblem pair : Pairs()) {
        const double metres = solve(pair);
        InverseGeodesic(pair);
        largest = std::max(largest, std::abs(metres - pair.distance));
    }
    state.counters["difference_mm"] = largest * 1000;
}

void Quillon(benchmark::State& state) {
    ForEachPair(state, [](GeodesicProblem& pair) {
        if (InverseGeodesic(pair) != GeodesyCode::Success) pair.distance = NAN;
        return pair.distance;
    });
}
BENCHMARK(Quillon)->Name("geodesic/Quillon")->Unit(benchmark::kMillisecond);

void GeographicLibs(benchmark::State& state) {
    const GeographicLib::Geodesic earth(Axis, Flattening);
    ForEachPair(state, [&](GeodesicProblem& pair) {
        earth.Inverse(pair.latitude1, pair.longitude1, pair.latitude2, pair.longitude2, pair.distance,
                      pair.forward_azimuth, pair.back_azimuth);
        return pair.distance;
    });
}
BENCHMARK(GeographicLibs)->Name("geodesic/GeographicLib")->Unit(benchmark::kMillisecond);

void Proj(benchmark::State& state) {
    geod_geodesic earth;
    geod_init(&earth, Axis, Flattening);
    ForEachPair(state, [&](GeodesicProblem& pair) {
        geod_inverse(&earth, pair.latitude1, pair.longitude1, pair.latitude2, pair.longitude2, &pair.distance,
                     &pair.forward_azimuth, &pair.back_azimuth);
        return pair.distance;
    });
}
BENCHMARK(Proj)->Name("geodesic/PROJ")->Unit(benchmark::kMillisecond);

/// The airports of one channel, all over the globe, and places to fly over them.
std::vector<GeoPoint> Points(std::size_t count, std::uint64_t seed) {
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> latitude(-85, 85);
    std::uniform_real_distribution<double> longitude(-180, 180);
    std::vector<GeoPoint> points;
    while (points.size() < count) points.push_back(GeoPoint::At(latitude(random), longitude(random)));
    return points;
}

template <typename Pick>
void PickNearest(benchmark::State& state, Pick pick) {
    const std::vector<GeoPoint> airports = Points(200, 1);
    const std::vector<GeoPoint> aircraft = Points(500, 2);
    std::size_t next = 0;
    for (auto _ : state) benchmark::DoNotOptimize(pick(aircraft[next++ % aircraft.size()], airports));
}

void NearestOf200(benchmark::State& state) {
    std::vector<const GeoPoint*> candidates;
    PickNearest(state, [&](const GeoPoint& aircraft, const std::vector<GeoPoint>& airports) {
        candidates.clear();
        for (const GeoPoint& airport : airports) candidates.push_back(&airport);
        return NearestInRange(aircraft, candidates, 0);
    });
}
BENCHMARK(NearestOf200)->Name("nearest/Quillon")->Unit(benchmark::kMicrosecond);

void NearestByInverses(benchmark::State& state) {
    const GeographicLib::Geodesic earth(Axis, Flattening);
    PickNearest(state, [&](const GeoPoint& aircraft, const std::vector<GeoPoint>& airports) {
        double least = INFINITY;
        for (const GeoPoint& airport : airports) {
            double metres = 0;
            earth.Inverse(aircraft.latitude, aircraft.longitude, airport.latitude, airport.longitude, metres);
            least = std::min(least, metres);
        }
        return least;
    });
}
BENCHMARK(NearestByInverses)->Name("nearest/GeographicLib")->Unit(benchmark::kMicrosecond);

} // namespace
