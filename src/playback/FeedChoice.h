#pragma once

#include "catalogue/FeedIndex.h"
#include "geo/AirportPositions.h"
#include "state/PlaybackState.h"

#include <optional>
#include <span>

namespace quillon {

/// Which feed of the tuned channel is played. Several airports of the world may have one channel; if the user
/// has marked that they do, the nearest one in range is meant.
class FeedChoice {
  public:
    FeedChoice(PlaybackState& state, const ListView& list, FeedIndex& index, AirportPositions& airports)
        : state_(state), list_(list), index_(index), airports_(airports) {}

    /// The row of the followed radio's channel: what was picked by hand while that is in range, else the
    /// nearest in range, else the first of the list. Forgets a pick of another channel.
    std::optional<std::size_t> Tuned();

    /// The row that takes over from the current feed, which is out of range: the nearest in range of the same
    /// channel. Nothing while the current feed is in range or has none.
    std::optional<std::size_t> Relief();

    /// Whether the followed radio's channel may lead to that feed: it is the first of the channel or, where
    /// airports share frequencies, one of them.
    bool IsCandidate(const FeedState& feed);

  private:
    std::span<const std::uint32_t> TunedRows();
    std::optional<std::size_t> Nearest(std::span<const std::uint32_t> rows);
    std::optional<std::size_t> Picked(std::span<const std::uint32_t> rows);
    const GeoPoint* PlaceOf(const FeedRecord& feed);

    PlaybackState& state_;
    const ListView& list_;
    FeedIndex& index_;
    AirportPositions& airports_;
};

} // namespace quillon
