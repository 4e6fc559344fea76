#include "playback/ManualMonitoring.h"

#include "playback/CurrentFeed.h"
#include "playback/ShuffleBag.h"
#include "playback/SimWatch.h"
#include "runtime/Text.h"
#include "state/FeedMarkers.h"

namespace quillon {

void ManualMonitoring::Timer2_Timer() {
    trap_.Run("Timer2 Errors", Icon::Information, [this] { Tick(); });
}

void ManualMonitoring::Tick() {
    FeedState& feed = state_.feed;
    RadioState& radio = state_.radio;
    feed.ActiveTimerId = 2;
    feed.CaptionBase = state_.form.optManual() ? "Quillon - Manual Mode" : "Quillon";
    state_.StartupStep = " Getting WMP State";
    display_.GetWMPState();
    state_.StartupStep = "Comparing Previous amd Master Frequencies";
    if (radio.MasterFrequency == radio.PreviousFrequency) return;
    radio.PreviousFrequency = radio.MasterFrequency; // one pick starts one source, once
    if (!feed.FeedUrl.empty()) StartPickedFeed();
}

void ManualMonitoring::StartPickedFeed() {
    FeedState& feed = state_.feed;
    state_.StartupStep = " Is this a wave?";
    if (feed.WplMarker > 0) {
        feed.FeedUrlMarker = "1";
        state_.form.Label2.Caption = "Windows PlayList";
    } else {
        const std::int32_t web = StreamMarker(feed.FeedUrl);
        feed.FeedUrlMarker = std::to_string(web > 0 ? web : InStr(feed.FeedUrl, "mms://"));
    }
    if (feed.FeedUrlMarker != "0") {
        StartStream();
        return;
    }
    FillShuffleBag(state_, feed.FeedUrl);
    PutInCharge(state_, 4);
}

void ManualMonitoring::StartStream() {
    player_.SetUrl(state_.feed.FeedUrl);
    Panel& frequency = state_.form.PanelAt(2);
    frequency.Text = frequency.ToolTipText = "Manual";
    ShowFeed(state_);
    display_.DisplayURL(state_.feed.FeedUrl);
}

} // namespace quillon
