#include "app/PlayerStrip.h"

#include <algorithm>

namespace quillon {

bool PlayerStrip::PlaysRecordingsByHand() const {
    return state_.cycle.ActiveTimerId == ManualChatterCycle;
}

void PlayerStrip::Play() {
    ChatterState& chatter = state_.chatter;
    const bool stopped = PlaysRecordingsByHand() && chatter.Held && player_.State() != Paused;
    if (stopped)
        chatter.FirstPick = true; // the stopped one need not be heard again: the next one follows at once
    chatter.Held = false;
    if (state_.mute.Muted)
        mute_.UnMuteSound();
    else if (state_.cycle.optManual() && !stopped)
        player_.Play();
}

void PlayerStrip::Pause() {
    state_.chatter.Held = PlaysRecordingsByHand();
    if (state_.cycle.optManual())
        player_.Pause();
    else
        mute_.MuteSound();
}

void PlayerStrip::Stop() {
    state_.chatter.Held = PlaysRecordingsByHand();
    if (state_.cycle.optManual())
        player_.Stop();
    else
        mute_.MuteSound();
}

void PlayerStrip::SetVolume(int volume) {
    volume_ = std::clamp(volume, 0, 100);
    player_.SetVolume(volume_);
}

void PlayerStrip::TurnMute() {
    if (state_.mute.Muted)
        mute_.UnMuteSound();
    else
        mute_.MuteSound();
}

void PlayerStrip::PlayOrStop() {
    if (IsHeard(state_.shown.Status.What))
        Stop();
    else
        Play();
}

void PlayerStrip::ReloadFeed() {
    live_.Reload();
}

} // namespace quillon
