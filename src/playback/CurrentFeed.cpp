#include "playback/CurrentFeed.h"

#include "radio/Channel.h"
#include "state/FeedMarkers.h"

#include <utility>

namespace quillon {

void MakeCurrent(PlaybackState& state, ScreenTexts& texts, const FeedRecord& record) {
    FeedState& feed = state.feed;
    if (!IsCurrent(feed, record)) texts.ShowCondition({}); // a dead feed is started again every second
    feed.FeedIcao = record.ICAO;
    feed.FeedCity = record.City;
    feed.FeedFrequency = record.Freq;
    feed.FeedUrl = record.URL;
    feed.RadioFeedMarker = RadioMarker(feed.FeedCity);
    feed.WplMarker = PlaylistMarker(feed.FeedUrl);
    feed.FeedUrlMarker = feed.WplMarker > 0 ? "1" : std::to_string(StreamMarker(feed.FeedUrl));
    texts.ShowStation(""); // it was the previous station's
    texts.ShowDistance({feed.RadioFeedMarker > 0 ? DistanceKind::NetRadio : DistanceKind::None});
    texts.ClearRange();
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

bool IsRetuned(const RadioState& radio) {
    return FrequencyKey(radio.MasterFrequency) != FrequencyKey(radio.PreviousFrequency);
}

void ClearCurrentFeed(PlaybackState& state, ScreenTexts& texts) {
    MakeCurrent(state, texts, {});
}

void EmptyPlayer(MediaPlayer& player) {
    player.SetUrl("");
    player.Stop();
}

void PutInCharge(CycleState& cycle, std::int16_t timer_id) {
    for (int id = 1; id <= 4; ++id) cycle.Timer(id).Enabled = id == timer_id;
    cycle.ActiveTimerId = timer_id;
}

bool CycleRuns(const CycleState& cycle) {
    const std::int16_t id = cycle.ActiveTimerId;
    return id >= 1 && id <= 4 && cycle.Timer(id).Enabled;
}

void RestartCycle(CycleState& cycle) {
    ++cycle.Timer(cycle.ActiveTimerId).RestartRequest;
}

bool StopCycle(CycleState& cycle) {
    bool ran = false;
    for (int id = 1; id <= 4; ++id) ran |= std::exchange(cycle.Timer(id).Enabled, false);
    return ran;
}

} // namespace quillon
