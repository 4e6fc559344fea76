#include "app/QuietReload.h"

#include "playback/CurrentFeed.h"

#include <algorithm>
#include <array>

namespace quillon {

namespace {

using Source = std::array<std::string, 3>; // airport, city and address, which outlive the list's texts

Source SourceOf(const FeedRecord& feed) {
    return {std::string(feed.ICAO), std::string(feed.City), std::string(feed.URL)};
}

std::optional<std::size_t> RowOf(const Source& source, const ListView& list) {
    const auto& items = list.Items();
    const auto found = std::find_if(items.begin(), items.end(), [&](const FeedRecord& item) {
        return item.ICAO == source[0] && item.City == source[1] && item.URL == source[2];
    });
    return found == items.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - items.begin()));
}

} // namespace

void QuietReload::TakeUp(const TextVersion& version) {
    const auto& loaded = loader_.Loaded();
    if (loaded.Text && *loaded.Text == *version.Text)
        loader_.Confirm(version);
    else
        Reload(version);
}

void QuietReload::Reload(const TextVersion& version) {
    const FeedState feed = state_.feed;
    const auto selected = list_.Selected();
    const Source source = selected ? SourceOf(list_.Items()[*selected]) : Source();
    loader_.LoadList(version);
    if (selected) list_.Select(RowOf(source, list_));
    state_.range.AirportSearchStart = 1;
    if (GoesOn(feed)) {
        state_.feed = feed;
        if (const auto row = RowOf({feed.FeedIcao, feed.FeedCity, feed.FeedUrl}, list_))
            state_.feed.FeedFrequency = list_.Items()[*row].Freq;
    } else {
        StopFeed();
    }
}

bool QuietReload::GoesOn(const FeedState& feed) {
    const Source source{feed.FeedIcao, feed.FeedCity, feed.FeedUrl};
    const bool nothing = source == Source();
    if (state_.cycle.optManual()) return nothing || RowOf(source, list_);
    return nothing ? !choice_.Tuned() : choice_.IsCandidate(feed);
}

void QuietReload::StopFeed() {
    const bool cycle_ran = StopCycle(state_.cycle);
    EmptyPlayer(player_);
    if (state_.cycle.optManual()) {
        ClearCurrentFeed(state_, texts_);
        texts_.ShowNoFeed();
        state_.radio.PreviousFrequency = state_.radio.MasterFrequency; // nothing has been picked
        state_.cycle.ActiveTimerId = ManualMonitoringCycle;
    }
    reload_.TakeUpList(cycle_ran);
}

} // namespace quillon
