#include "playback/Mute.h"

#include "playback/CurrentFeed.h"

namespace quillon {

void Mute::MuteSound() {
    MuteState& mute = state_.mute;
    if (mute.Muted && !CycleRuns(state_.cycle))
        return; // a pick or another mode may have started one while muted
    mute.Muted = true;
    const bool net_radio = state_.feed.FeedUrlMarker != "0" && state_.feed.RadioFeedMarker > 0;
    if (net_radio)
        player_.Stop();
    else
        player_.Pause();
    SetActiveTimer(false);
    if (state_.shown.Status.What != Activity::Muted) mute.SavedStatus = state_.shown.Status;
    texts_.ShowStatus({Activity::Muted});
    texts_.ShowTitle(state_.cycle.CaptionBase, {Activity::Muted});
    texts_.ShowStation(""); // no longer updated while muted
    texts_.ShowCondition({});
}

void Mute::UnMuteSound() {
    MuteState& mute = state_.mute;
    if (!mute.Muted) return;
    mute.Muted = false;
    if (!state_.chatter.Held) player_.Play();
    SetActiveTimer(true);
    texts_.ShowStatus(mute.SavedStatus);
    texts_.ShowTitle(state_.cycle.CaptionBase);
}

void Mute::SetActiveTimer(bool enabled) {
    const std::int16_t id = state_.cycle.ActiveTimerId;
    if (id >= 1 && id <= 4) state_.cycle.Timer(id).Enabled = enabled;
}

} // namespace quillon
