#include "playback/RecordedChatter.h"

#include "playback/CurrentFeed.h"

namespace quillon {

void RecordedChatter::Timer3_Timer() {
    trap_.Run("Timer3 Errors", Icon::Information, [this] { AutomaticTick(); });
}

void RecordedChatter::Timer4_Timer() {
    trap_.Run("Timer4 Errors", Icon::Information, [this] { ManualTick(); });
}

void RecordedChatter::AutomaticTick() {
    state_.feed.ActiveTimerId = 3;
    if (!FollowSimulator() || RecordingPlays()) return;
    schedule_.MeasureElapsed();
    if (!schedule_.CountDown()) PlayNextInRange();
}

/// Returns whether the tick goes on to the recordings.
bool RecordedChatter::FollowSimulator() {
    if (!sim_.Relink()) return false;
    state_.StartupStep = "Checking pause state";
    if (sim_.FollowPause()) return false;
    state_.StartupStep = "Comparing frequencies";
    state_.radio.PreviousFrequency = state_.radio.MasterFrequency;
    if (!state_.form.optManual()) {
        state_.StartupStep = "Getting Master Frequency";
        sim_.FollowRadio(true);
    }
    state_.StartupStep = "Comparing Previous and Master Frequencies";
    if (Retuned()) {
        HandBack(1);
        return false;
    }
    sim_.UpdateRange();
    state_.StartupStep = "Checking Range";
    sim_.HushOutOfRange();
    return true;
}

/// Whether the recordings' frequency is no longer the one to follow. The status bar's grey tells of it.
bool RecordedChatter::Retuned() {
    constexpr std::uint32_t Grey = 0xC0C0C0;
    const bool retuned = state_.radio.MasterFrequency != state_.radio.PreviousFrequency ||
                         state_.form.StatusBar1[0].Text == "No Connection";
    if (retuned) state_.form.StatusBarColor = Grey;
    return retuned;
}

void RecordedChatter::HandBack(std::int16_t timer_id) {
    PutInCharge(state_, timer_id);
    state_.feed.ForceRetune = true;
}

/// The gap counts from the moment the recording has ended.
bool RecordedChatter::RecordingPlays() {
    if (player_.State() != Playing) return false;
    schedule_.BeginGap();
    return true;
}

void RecordedChatter::PlayNextInRange() {
    const auto path = schedule_.Draw("Select random wave");
    if (!path) return;
    if (state_.range.InRange) player_.SetUrl(*path); // what is out of range is missed, not put off
    ShowPlaying(*path);
}

void RecordedChatter::ManualTick() {
    FeedState& feed = state_.feed;
    feed.ActiveTimerId = 4;
    state_.StartupStep = "Compare Previous and Master Frequencies";
    if (Retuned() && feed.FeedUrlMarker != "0") {
        HandBack(state_.form.optManual() ? 2 : 1);
        return;
    }
    ShowFeed(state_);
    state_.radio.PreviousFrequency = state_.radio.MasterFrequency;
    if (RecordingPlays()) return;
    schedule_.MeasureElapsed();
    HurryFirstPick();
    if (schedule_.CountDown()) {
        state_.form.PanelAt(2).Text = feed.FeedFrequency;
        state_.form.PanelAt(2).ToolTipText.clear();
    } else {
        PlayNextAnywhere();
    }
}

/// Who has just picked a folder hears it at once, whatever is left of the gap.
void RecordedChatter::HurryFirstPick() {
    ChatterState& chatter = state_.chatter;
    if (!chatter.FirstPick) return;
    chatter.FirstPick = false;
    chatter.ChatterElapsed = chatter.NextChatterDelay;
    state_.form.PanelAt(1).Text = "ATC in 1 sec";
}

void RecordedChatter::PlayNextAnywhere() {
    const auto path = schedule_.Draw("Pick random wave");
    if (!path) return;
    player_.SetUrl(*path);
    state_.form.Label2.Caption = "ATC Wave File";
    ShowPlaying(*path);
}

void RecordedChatter::ShowPlaying(const std::string& path) {
    display_.DisplayURL(path);
    ShowFeed(state_);
    state_.form.Caption = "Quillon -OK";
    state_.form.PanelAt(1).Text = "ATC Playing";
    schedule_.BeginGap();
    state_.StartupStep.clear();
    state_.LastSearchText.clear();
}

} // namespace quillon
