#include "playback/FeedsAround.h"

#include "state/FeedMarkers.h"

#include <algorithm>
#include <limits>
#include <tuple>

namespace quillon {

namespace {

/// No distance of more metres counts as `range` nautical miles, however the two roundings fall.
double MostMetres(std::int16_t range) {
    return (range + 1) * 1852.0 + 2 * 1609;
}

} // namespace

std::vector<FeedAround> FeedsAround::Find(const GeoPoint& aircraft, std::int16_t range) {
    Update();
    Narrow(aircraft, range);
    std::vector<FeedAround> found;
    for (const Airport& airport : near_) {
        const auto sight = Look(aircraft, *airport.place);
        if (!sight || (range != 0 && sight->NauticalMiles() > range)) continue;
        for (const std::uint32_t row : LocalRows(airport)) found.push_back({row, *sight});
    }
    std::sort(found.begin(), found.end(), [](const FeedAround& a, const FeedAround& b) {
        return std::tie(a.Where.metres, a.Row) < std::tie(b.Where.metres, b.Row);
    });
    if (range == 0 && found.size() > Most) found.erase(found.begin() + Most, found.end());
    return found;
}

void FeedsAround::Update() {
    if (revision_ == list_.Revision()) return;
    revision_ = list_.Revision();
    known_.clear();
    for (const auto& [icao, rows] : index_.ByAirport())
        if (const GeoPoint* place = airports_.Of(icao)) known_.push_back({place, &rows, 0});
}

/// An inverse costs as much as many arcs, so only airports whose arcs are short enough get one.
void FeedsAround::Narrow(const GeoPoint& aircraft, std::int16_t range) {
    for (Airport& airport : known_) airport.arc = ArcBetween(aircraft, *airport.place);
    const double longest = range == 0 ? ReachOfMost() : MostMetres(range) / ShortestRadian;
    near_.clear();
    for (const Airport& airport : known_)
        if (airport.arc <= longest) near_.push_back(airport);
}

/// The arc beyond which no feed can be among the nearest, radians.
double FeedsAround::ReachOfMost() {
    std::sort(known_.begin(), known_.end(), [](const Airport& a, const Airport& b) { return a.arc < b.arc; });
    std::size_t feeds = 0;
    for (const Airport& airport : known_) {
        feeds += LocalRows(airport).size();
        if (feeds >= Most) return airport.arc * (LongestRadian / ShortestRadian);
    }
    return std::numeric_limits<double>::infinity();
}

std::vector<std::uint32_t> FeedsAround::LocalRows(const Airport& airport) const {
    std::vector<std::uint32_t> rows;
    for (const std::uint32_t row : *airport.rows) {
        const FeedRecord& feed = list_.Items()[row];
        if (IsLocal(feed.City, feed.URL)) rows.push_back(row);
    }
    return rows;
}

} // namespace quillon
