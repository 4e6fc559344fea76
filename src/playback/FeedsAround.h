#pragma once

#include "catalogue/FeedIndex.h"
#include "geo/AirportPositions.h"
#include "state/ListView.h"

#include <cstdint>
#include <vector>

namespace quillon {

/// A row of the list, and where its airport lies.
struct FeedAround {
    std::uint32_t Row;
    Sight Where;
};

/// Which feeds are around the aircraft.
class FeedsAround {
  public:
    /// As many feeds are found if there is no range.
    static constexpr std::size_t Most = 100;

    FeedsAround(const ListView& list, FeedIndex& index, AirportPositions& airports)
        : list_(list), index_(index), airports_(airports) {}

    /// The feeds whose airports are within `range` nautical miles, nearest first; for a range of 0 the nearest
    /// ones at whatever distance. Stations, playlists and feeds of unknown airports are never among them.
    std::vector<FeedAround> Find(const GeoPoint& aircraft, std::int16_t range);

  private:
    struct Airport {
        const GeoPoint* place;
        const FeedIndex::Rows* rows;
        double arc; ///< from the aircraft, radians
    };

    void Update();
    void Narrow(const GeoPoint& aircraft, std::int16_t range);
    double ReachOfMost();
    std::vector<std::uint32_t> LocalRows(const Airport& airport) const;

    const ListView& list_;
    FeedIndex& index_;
    AirportPositions& airports_;
    std::uint64_t revision_ = 0;
    std::vector<Airport> known_; ///< whose positions are known
    std::vector<Airport> near_;  ///< those that may be in range
};

} // namespace quillon
