#include "playback/PlayerDisplay.h"

#include "runtime/Text.h"
#include "state/FeedMarkers.h"
#include "state/Services.h"

namespace quillon {

namespace {

struct StateTexts {
    const char* Panel;
    const char* Suffix;
};

StateTexts TextsFor(PlayState state) {
    switch (state) {
    case Undefined:
    case Stopped:
        return {"Stopped", " -S"};
    case Paused:
        return {"Paused", " -P"};
    case Playing:
        return {"Playing", " -OK"};
    case Buffering:
    case MediaEnded:
        return {"Buffering", " -B"}; // the next piece of a live feed is on its way
    case Transitioning:
        return {"Connecting", " -C"};
    default:
        return {"No Connection", " -NC"};
    }
}

bool IsLiveAtc(const std::string& url) {
    return InStr(url, services::LiveAtcHost) > 0 || InStr(url, services::StreamServer) > 0;
}

} // namespace

void PlayerDisplay::GetWMPState() {
    const PlayState play_state = player_.State();
    StateTexts texts = TextsFor(play_state);
    if (play_state == Paused && InStr(state_.form.Label2.Caption, "(Out of Range)") > 0) texts.Suffix = " -OR";
    if (play_state == Playing) texts.Suffix = ShowPlaying();
    state_.form.PanelAt(1).Text = texts.Panel;
    state_.form.Caption = state_.feed.CaptionBase + texts.Suffix;
    state_.form.PanelAt(3).ToolTipText = live_.Title();
    state_.form.picATCNetVisible = IsLiveAtc(state_.feed.FeedUrl);
}

const char* PlayerDisplay::ShowPlaying() {
    FeedState& feed = state_.feed;
    feed.RadioFeedMarker = RadioMarker(feed.FeedCity);
    std::string& label = state_.form.Label2.Caption;
    if (feed.RadioFeedMarker > 0)
        label = "Net Radio";
    else
        label = feed.WplMarker < 1 ? "Manual Mode" : "Windows PlayList";
    return feed.RadioFeedMarker > 0 ? " -Radio" : " -OK";
}

void PlayerDisplay::DisplayURL(const std::string& address) {
    state_.form.PanelAt(4).Text = Len(address) > 28 ? "..." + Right(address, 28) : address;
}

void PlayerDisplay::picATCNet_Click() {
    shell_.OpenAddress(services::LiveAtcHomePage);
}

} // namespace quillon
