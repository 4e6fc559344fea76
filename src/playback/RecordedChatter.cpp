#include "playback/RecordedChatter.h"

#include "playback/CurrentFeed.h"

namespace quillon {

void RecordedChatter::Timer3_Timer() {
    state_.cycle.ActiveTimerId = AutomaticChatterCycle;
    sim_.Ask([this] { trap_.Run("Timer3 Errors", Icon::Information, [this] { AutomaticTick(); }); });
}

void RecordedChatter::Timer4_Timer() {
    trap_.Run("Timer4 Errors", Icon::Information, [this] { ManualTick(); });
}

void RecordedChatter::AutomaticTick() {
    if (!FollowSimulator() || RecordingPlays() || !schedule_.FolderIsKnown()) return;
    schedule_.MeasureElapsed();
    if (!schedule_.CountDown()) PlayNextInRange();
}

/// Returns whether the tick goes on with the recordings.
bool RecordedChatter::FollowSimulator() {
    if (!sim_.Relink()) return false;
    trap_.StartupStep() = "Checking pause state";
    if (sim_.FollowPause()) return false;
    trap_.StartupStep() = "Comparing frequencies";
    state_.radio.PreviousFrequency = state_.radio.MasterFrequency;
    if (!state_.cycle.optManual()) {
        trap_.StartupStep() = "Getting Master Frequency";
        sim_.FollowRadio(true);
    }
    trap_.StartupStep() = "Comparing Previous and Master Frequencies";
    if (Retuned()) {
        HandBack(AutomaticTuningCycle);
        return false;
    }
    sim_.UpdateRange();
    if (choice_.Relief()) {
        HandBack(AutomaticTuningCycle);
        return false;
    }
    trap_.StartupStep() = "Checking Range";
    sim_.HushOutOfRange();
    return true;
}

/// Whether the radio has left the recordings' frequency; if so, greys the status bar.
bool RecordedChatter::Retuned() {
    const bool retuned = IsRetuned(state_.radio) || state_.shown.Status.What == Activity::NoConnection;
    if (retuned) texts_.GreyStatusBar();
    return retuned;
}

void RecordedChatter::HandBack(Cycle cycle) {
    PutInCharge(state_.cycle, cycle);
    state_.cycle.ForceRetune = true;
}

/// The gap counts from the end of the recording.
bool RecordedChatter::RecordingPlays() {
    if (player_.State() != Playing) return false;
    schedule_.BeginGap();
    texts_.ShowCondition({});
    return true;
}

void RecordedChatter::PlayNextInRange() {
    const auto path = schedule_.Draw("Select random wave");
    if (!path) return;
    if (state_.range.InRange) player_.SetUrl(*path); // out of range, a recording is skipped, not postponed
    ShowPlaying(*path);
}

void RecordedChatter::ManualTick() {
    FeedState& feed = state_.feed;
    state_.cycle.ActiveTimerId = ManualChatterCycle;
    trap_.StartupStep() = "Compare Previous and Master Frequencies";
    if (Retuned() && feed.FeedUrlMarker != "0") {
        HandBack(state_.cycle.optManual() ? ManualMonitoringCycle : AutomaticTuningCycle);
        return;
    }
    texts_.ShowFeed();
    state_.radio.PreviousFrequency = state_.radio.MasterFrequency;
    if (state_.chatter.Held) {
        ShowHeld();
        return;
    }
    if (RecordingPlays() || !schedule_.FolderIsKnown()) return;
    schedule_.MeasureElapsed();
    HurryFirstPick();
    if (schedule_.CountDown())
        texts_.ShowFrequency(feed.FeedFrequency);
    else
        PlayNextAnywhere();
}

void RecordedChatter::ShowHeld() {
    const Activity activity = player_.State() == Paused ? Activity::Paused : Activity::Stopped;
    texts_.ShowStatus({activity});
    texts_.ShowTitle("Quillon", {activity});
}

/// A folder just picked is heard at once, whatever is left of the gap.
void RecordedChatter::HurryFirstPick() {
    ChatterState& chatter = state_.chatter;
    if (!chatter.FirstPick) return;
    chatter.FirstPick = false;
    chatter.ChatterElapsed = chatter.NextChatterDelay;
    texts_.ShowStatus({Activity::Gap, 1});
}

void RecordedChatter::PlayNextAnywhere() {
    const auto path = schedule_.Draw("Pick random wave");
    if (!path) return;
    player_.SetUrl(*path);
    texts_.ShowDistance({DistanceKind::WaveFile});
    ShowPlaying(*path);
}

void RecordedChatter::ShowPlaying(const std::string& path) {
    texts_.DisplayURL(path);
    texts_.ShowFeed();
    texts_.ShowStatus({Activity::RecordingPlays});
    texts_.ShowTitle("Quillon", {Activity::RecordingPlays});
    schedule_.BeginGap();
    trap_.StartupStep().clear();
    last_search_text_.clear();
}

} // namespace quillon
