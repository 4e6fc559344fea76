// Geodesic distances: Quillon's, GeographicLib's and PROJ's on the same ellipsoid.
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

constexpr std::int16_t Wgs84 = 22;
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

} // namespace
