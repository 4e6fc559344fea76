#include "playback/ManualMonitoring.h"

#include "playback/CurrentFeed.h"
#include "runtime/Text.h"
#include "state/FeedMarkers.h"

namespace quillon {

void ManualMonitoring::Timer2_Timer() {
    trap_.Run("Timer2 Errors", Icon::Information, [this] { Tick(); });
}

void ManualMonitoring::Tick() {
    FeedState& feed = state_.feed;
    RadioState& radio = state_.radio;
    state_.cycle.ActiveTimerId = ManualMonitoringCycle;
    state_.cycle.CaptionBase = state_.cycle.optManual() ? "Quillon - Manual Mode" : "Quillon";
    trap_.StartupStep() = " Getting WMP State";
    display_.GetWMPState();
    trap_.StartupStep() = "Comparing Previous amd Master Frequencies";
    if (radio.MasterFrequency == radio.PreviousFrequency) return;
    radio.PreviousFrequency = radio.MasterFrequency; // each pick starts its source once
    if (!feed.FeedUrl.empty()) StartPickedFeed();
}

void ManualMonitoring::StartPickedFeed() {
    FeedState& feed = state_.feed;
    trap_.StartupStep() = " Is this a wave?";
    if (feed.WplMarker > 0) {
        feed.FeedUrlMarker = "1";
        texts_.ShowDistance({DistanceKind::PlayList});
    } else {
        const std::int32_t web = StreamMarker(feed.FeedUrl);
        feed.FeedUrlMarker = std::to_string(web > 0 ? web : InStr(feed.FeedUrl, "mms://"));
    }
    if (feed.FeedUrlMarker != "0") {
        StartStream();
        return;
    }
    bag_.Fill(feed.FeedUrl);
    PutInCharge(state_.cycle, ManualChatterCycle);
}

void ManualMonitoring::StartStream() {
    player_.SetUrl(state_.feed.FeedUrl);
    texts_.ShowManualPick();
    texts_.ShowFeed();
    texts_.DisplayURL(state_.feed.FeedUrl);
}

} // namespace quillon
