#include "playback/PlayerDisplay.h"

#include "runtime/Text.h"
#include "state/FeedMarkers.h"
#include "state/Services.h"

namespace quillon {

namespace {

Activity ActivityOf(PlayState state) {
    switch (state) {
    case Undefined:
    case Stopped:
        return Activity::Stopped;
    case Paused:
        return Activity::Paused;
    case Playing:
        return Activity::Playing;
    case Buffering:
    case MediaEnded:
        return Activity::Buffering; // a live feed's next part is on its way
    case Transitioning:
        return Activity::Connecting;
    default:
        return Activity::NoConnection;
    }
}

bool IsLiveAtc(const std::string& url) {
    return InStr(url, services::LiveAtcHost) > 0 || InStr(url, services::StreamServer) > 0;
}

} // namespace

void PlayerDisplay::GetWMPState() {
    Activity activity = ActivityOf(player_.State());
    if (activity == Activity::Paused && state_.shown.Distance.Kind == DistanceKind::OutOfRange)
        activity = Activity::OutOfRange;
    if (activity == Activity::Playing) activity = ShowPlaying();
    texts_.ShowStatus({activity});
    texts_.ShowTitle(state_.cycle.CaptionBase, {activity});
    texts_.ShowStation(live_.Title());
    const bool tries = activity == Activity::Connecting || activity == Activity::Buffering ||
                       activity == Activity::NoConnection;
    FeedCondition condition = live_.Condition();
    if (!tries) condition = {{}, {}, condition.NotEncrypted};
    texts_.ShowCondition(condition);
    texts_.ShowServiceLogo(IsLiveAtc(state_.feed.FeedUrl));
}

Activity PlayerDisplay::ShowPlaying() {
    FeedState& feed = state_.feed;
    feed.RadioFeedMarker = RadioMarker(feed.FeedCity);
    if (feed.RadioFeedMarker > 0) {
        texts_.ShowDistance({DistanceKind::NetRadio});
        return Activity::NetRadio;
    }
    texts_.ShowDistance({feed.WplMarker < 1 ? DistanceKind::ManualMode : DistanceKind::PlayList});
    return Activity::Playing;
}

void PlayerDisplay::picATCNet_Click() {
    shell_.OpenAddress(services::LiveAtcHomePage);
}

} // namespace quillon
