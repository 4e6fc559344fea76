#include "playback/FeedChoice.h"

#include "playback/CurrentFeed.h"
#include "radio/Channel.h"
#include "state/FeedMarkers.h"

#include <algorithm>
#include <vector>

namespace quillon {

std::optional<std::size_t> FeedChoice::Tuned() {
    auto& picked = state_.feed.Picked;
    const std::string& frequency = state_.radio.MasterFrequency;
    if (picked && FrequencyKey(picked->Frequency) != FrequencyKey(frequency)) picked.reset();
    const auto rows = TunedRows();
    if (rows.empty()) return std::nullopt;
    if (!state_.marks.SharedFrequencies.value_or(false)) return rows.front();
    if (const auto row = Picked(rows)) return row;
    const auto nearest = Nearest(rows);
    return nearest ? nearest : rows.front();
}

std::optional<std::size_t> FeedChoice::Relief() {
    const FeedState& feed = state_.feed;
    const bool bound_to_range = !feed.FeedUrl.empty() && feed.RadioFeedMarker == 0 && feed.WplMarker == 0;
    if (!state_.marks.SharedFrequencies.value_or(false) || state_.range.InRange || !bound_to_range)
        return std::nullopt;
    const auto row = Nearest(index_.OfChannel(feed.FeedFrequency));
    return row && !IsCurrent(feed, list_.Items()[*row]) ? row : std::nullopt;
}

bool FeedChoice::IsCandidate(const FeedState& feed) {
    auto rows = TunedRows();
    if (!state_.marks.SharedFrequencies.value_or(false) && !rows.empty()) rows = rows.first(1);
    return std::any_of(rows.begin(), rows.end(), [&](std::uint32_t row) {
        const FeedRecord& item = list_.Items()[row];
        return item.ICAO == feed.FeedIcao && item.City == feed.FeedCity && item.URL == feed.FeedUrl;
    });
}

/// The followed radio's channel or, if no feed has it, the other one on its carrier. What an older module says
/// of the radio is too little to tell the carrier.
std::span<const std::uint32_t> FeedChoice::TunedRows() {
    const RadioState& radio = state_.radio;
    if (radio.MasterFrequency.empty() || IsSentinel(radio.MasterFrequency)) return {};
    const auto rows = index_.OfChannel(radio.MasterFrequency);
    const auto channel = Channel::Named(radio.MasterFrequency);
    if (!rows.empty() || !channel || !radio.ReadInHertz) return rows;
    const auto other = channel->OnSameCarrier();
    return other ? index_.OfChannel(other->Text()) : rows;
}

std::optional<std::size_t> FeedChoice::Nearest(std::span<const std::uint32_t> rows) {
    const auto aircraft = AircraftPoint(state_.radio.AircraftLatitudeText, state_.radio.AircraftLongitudeText);
    if (!aircraft) return std::nullopt;
    std::vector<const GeoPoint*> places;
    places.reserve(rows.size());
    for (const std::uint32_t row : rows) places.push_back(PlaceOf(list_.Items()[row]));
    const auto nearest = NearestInRange(*aircraft, places, state_.range.ReceptionRange);
    return nearest ? std::optional<std::size_t>(rows[*nearest]) : std::nullopt;
}

std::optional<std::size_t> FeedChoice::Picked(std::span<const std::uint32_t> rows) {
    const auto& picked = state_.feed.Picked;
    if (!picked) return std::nullopt;
    const auto row = std::find_if(rows.begin(), rows.end(), [&](std::uint32_t candidate) {
        const FeedRecord& feed = list_.Items()[candidate];
        return feed.ICAO == picked->Icao && feed.URL == picked->Url;
    });
    return row == rows.end() ? std::nullopt : Nearest({row, 1});
}

/// Null for radio stations and playlists, too: they are bound to no place.
const GeoPoint* FeedChoice::PlaceOf(const FeedRecord& feed) {
    return IsLocal(feed.City, feed.URL) ? airports_.Of(feed.ICAO) : nullptr;
}

} // namespace quillon
