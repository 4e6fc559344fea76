#include "playback/SelectionModes.h"

#include "playback/CurrentFeed.h"

namespace quillon {

void SelectionModes::optAuto_Click() {
    state_.form.lvwDB.ClearLastSearch();
    state_.form.Mode = SelectionMode::Automatic;
    state_.form.PanelAt(4).Text = "Selection Mode: Automatic";
    state_.form.Label2.Caption = "Stopped";
    EmptyPlayer(player_);
    // A frequency picked by hand must not pass for one that a radio was tuned to.
    state_.radio.MasterFrequency = UnreadFrequency;
    state_.feed.ForceRetune = true;
    PutInCharge(state_, 1);
}

void SelectionModes::optManual_Click() {
    state_.form.lvwDB.ClearLastSearch();
    state_.form.Mode = SelectionMode::Manual;
    state_.form.Caption = "Quillon - Manual";
    state_.form.PanelAt(4).Text = "Selection Mode: Manual";
    // Nothing has been picked by hand yet; what the radio had started goes on.
    state_.radio.PreviousFrequency = state_.radio.MasterFrequency;
    PutInCharge(state_, 2);
}

} // namespace quillon
