#include "playback/SelectionModes.h"

#include "playback/CurrentFeed.h"

namespace quillon {

void SelectionModes::optAuto_Click() {
    list_.ClearLastSearch();
    state_.cycle.Mode = SelectionMode::Automatic;
    texts_.ShowMode();
    texts_.ShowDistance({DistanceKind::Stopped});
    EmptyPlayer(player_);
    // A frequency picked by hand must not count as one the radio was tuned to.
    state_.radio.MasterFrequency = UnreadFrequency;
    state_.cycle.ForceRetune = true;
    PutInCharge(state_.cycle, AutomaticTuningCycle);
}

void SelectionModes::optManual_Click() {
    list_.ClearLastSearch();
    state_.cycle.Mode = SelectionMode::Manual;
    texts_.ShowTitle("Quillon - Manual");
    texts_.ShowLink(LinkNews::None);
    if (state_.radio.SimLost) state_.radio.NoConnection = false; // nothing looks for a simulator in this mode
    texts_.ShowMode();
    // Nothing has been picked by hand yet; what the radio started goes on.
    state_.radio.PreviousFrequency = state_.radio.MasterFrequency;
    PutInCharge(state_.cycle, ManualMonitoringCycle);
}

} // namespace quillon
