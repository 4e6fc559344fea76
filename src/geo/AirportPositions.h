#pragma once

#include "geo/GeoPoint.h"
#include "state/AirportList.h"

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillon {

/// Where airports are. Each is looked up in the airport file only once.
class AirportPositions {
  public:
    explicit AirportPositions(const AirportList& airports) : airports_(airports) {}

    /// Null for an airport that the file does not know, or whose line makes no sense. Valid until Forget.
    const GeoPoint* Of(std::string_view icao);

    /// Whether the airport file has a line for it, with a position or without.
    bool Lists(std::string_view icao) const { return LineOf(icao).has_value(); }

    /// The airport file has been loaded anew.
    void Forget() { known_.clear(); }

  private:
    std::optional<std::size_t> LineOf(std::string_view icao) const;
    std::optional<GeoPoint> LookUp(std::string_view icao) const;

    const AirportList& airports_;
    std::map<std::string, std::optional<GeoPoint>, std::less<>> known_;
};

/// Which of the airports is nearest to the aircraft, if that one is within `range` nautical miles; a range of 0
/// has no limit. Null airports are never the nearest.
std::optional<std::size_t> NearestInRange(const GeoPoint& aircraft, std::span<const GeoPoint* const> airports,
                                          std::int16_t range);

} // namespace quillon
