#include "geo/AirportPositions.h"

#include "geo/Airports.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace quillon {

const GeoPoint* AirportPositions::Of(std::string_view icao) {
    auto found = known_.find(icao);
    if (found == known_.end()) found = known_.emplace(icao, LookUp(icao)).first;
    return found->second ? &*found->second : nullptr;
}

std::optional<std::size_t> AirportPositions::LineOf(std::string_view icao) const {
    return icao.empty() ? std::nullopt : airports_.Find(icao, 1); // the first line is a heading
}

std::optional<GeoPoint> AirportPositions::LookUp(std::string_view icao) const {
    const auto line = LineOf(icao);
    if (!line) return std::nullopt;
    try {
        const AirportPosition position = ParseAirport(airports_.Lines()[*line]);
        return GeoPoint::At(DmsToDegrees(position.latitude), DmsToDegrees(position.longitude));
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

std::optional<std::size_t> NearestInRange(const GeoPoint& aircraft, std::span<const GeoPoint* const> airports,
                                          std::int16_t range) {
    // An inverse costs more than a hundred arcs, and only arcs near the shortest can belong to the nearest.
    std::vector<double> arcs;
    arcs.reserve(airports.size());
    for (const GeoPoint* airport : airports)
        arcs.push_back(airport ? ArcBetween(aircraft, *airport) : std::numeric_limits<double>::infinity());
    const double shortest = arcs.empty() ? 0 : *std::min_element(arcs.begin(), arcs.end());
    std::optional<std::size_t> nearest;
    Sight best{std::numeric_limits<double>::infinity(), 0};
    for (std::size_t i = 0; i < airports.size(); ++i) {
        if (airports[i] == nullptr || arcs[i] * ShortestRadian > shortest * LongestRadian) continue;
        const auto sight = Look(aircraft, *airports[i]);
        if (!sight || sight->metres >= best.metres) continue;
        best = *sight;
        nearest = i;
    }
    return nearest && (range == 0 || best.NauticalMiles() <= range) ? nearest : std::nullopt;
}

} // namespace quillon
