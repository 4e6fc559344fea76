#include "playback/RecordedChatter.h"

#include "playback/CurrentFeed.h"

namespace quillon {

void RecordedChatter::Timer3_Timer() {
    trap_.Run("Timer3 Errors", Icon::Information, [this] { Tick(); });
}

void RecordedChatter::Tick() {
    state_.feed.ActiveTimerId = 3;
    if (!sim_.Relink()) return;
    state_.StartupStep = "Checking pause state";
    if (sim_.FollowPause()) return;
    state_.StartupStep = "Comparing frequencies";
    state_.radio.PreviousFrequency = state_.radio.MasterFrequency;
    if (!state_.form.optManual()) {
        state_.StartupStep = "Getting Master Frequency";
        sim_.FollowRadio(true);
    }
    state_.StartupStep = "Comparing Previous and Master Frequencies";
    if (Retuned()) {
        PutInCharge(state_, 1);
        state_.feed.ForceRetune = true;
        return;
    }
    sim_.UpdateRange();
    state_.StartupStep = "Checking Range";
    sim_.HushOutOfRange();
}

bool RecordedChatter::Retuned() {
    return state_.radio.MasterFrequency != state_.radio.PreviousFrequency ||
           state_.form.PanelAt(1).Text == "No Connection";
}

} // namespace quillon
