#include "playback/Mute.h"

namespace quillon {

void Mute::MuteSound() {
    MuteState& mute = state_.mute;
    if (mute.Muted && !ActiveTimerRuns()) return; // a pick or another mode may have started one while muted
    mute.Muted = true;
    const bool net_radio = state_.feed.FeedUrlMarker != "0" && state_.feed.RadioFeedMarker > 0;
    if (net_radio)
        player_.Stop();
    else
        player_.Pause();
    SetActiveTimer(false);
    state_.form.Caption = state_.feed.CaptionBase + " -Mute";
    mute.SavedStatusText = state_.form.PanelAt(1).Text;
    state_.form.PanelAt(1).Text = "Muted";
    state_.form.PanelAt(3).ToolTipText.clear(); // what the station plays is followed no more
}

void Mute::UnMuteSound() {
    MuteState& mute = state_.mute;
    if (!mute.Muted) return;
    mute.Muted = false;
    player_.Play();
    SetActiveTimer(true);
    state_.form.Caption = state_.feed.CaptionBase;
    state_.form.PanelAt(1).Text = mute.SavedStatusText;
}

bool Mute::ActiveTimerRuns() const {
    const std::int16_t id = state_.feed.ActiveTimerId;
    return id >= 1 && id <= 4 && state_.form.Timer(id).Enabled;
}

void Mute::SetActiveTimer(bool enabled) {
    const std::int16_t id = state_.feed.ActiveTimerId;
    if (id >= 1 && id <= 4) state_.form.Timer(id).Enabled = enabled;
}

} // namespace quillon
