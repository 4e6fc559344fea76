#include "playback/CurrentFeed.h"

#include "state/FeedMarkers.h"

#include <utility>

namespace quillon {

void MakeCurrent(ProgramState& state, const FeedRecord& record) {
    FeedState& feed = state.feed;
    feed.FeedIcao = record.ICAO;
    feed.FeedCity = record.City;
    feed.FeedFrequency = record.Freq;
    feed.FeedUrl = record.URL;
    feed.RadioFeedMarker = RadioMarker(feed.FeedCity);
    feed.WplMarker = PlaylistMarker(feed.FeedUrl);
    feed.FeedUrlMarker = feed.WplMarker > 0 ? "1" : std::to_string(StreamMarker(feed.FeedUrl));
    state.form.PanelAt(3).ToolTipText.clear(); // was what the station before said
    state.form.Label2 = {feed.RadioFeedMarker > 0 ? "Net Radio" : "", ""};
    state.range.InRange = false;
    state.range.AirportSearchStart = 1;
}

bool IsCurrent(const FeedState& feed, const FeedRecord& record) {
    return feed.FeedIcao == record.ICAO && feed.FeedCity == record.City && feed.FeedFrequency == record.Freq &&
           feed.FeedUrl == record.URL;
}

bool IsStream(const FeedState& feed) {
    return !feed.FeedUrl.empty() && feed.FeedUrlMarker != "0";
}

void ClearCurrentFeed(ProgramState& state) {
    MakeCurrent(state, {});
}

void EmptyPlayer(MediaPlayer& player) {
    player.SetUrl("");
    player.Stop();
}

void PutInCharge(ProgramState& state, std::int16_t timer_id) {
    for (int id = 1; id <= 4; ++id) state.form.Timer(id).Enabled = id == timer_id;
    state.feed.ActiveTimerId = timer_id;
}

bool StopCycle(ProgramState& state) {
    bool ran = false;
    for (int id = 1; id <= 4; ++id) ran |= std::exchange(state.form.Timer(id).Enabled, false);
    return ran;
}

} // namespace quillon
