#include "app/PlayerStrip.h"

#include <algorithm>

namespace quillon {

void PlayerStrip::cmdPlay_Click() {
    if (state_.mute.Muted)
        mute_.UnMuteSound();
    else if (state_.cycle.optManual())
        player_.Play();
}

void PlayerStrip::cmdPause_Click() {
    if (state_.cycle.optManual())
        player_.Pause();
    else
        mute_.MuteSound();
}

void PlayerStrip::cmdStop_Click() {
    if (state_.cycle.optManual())
        player_.Stop();
    else
        mute_.MuteSound();
}

void PlayerStrip::sldVolume_Change(int volume) {
    state_.form.Volume = std::clamp(volume, 0, 100);
    player_.SetVolume(state_.form.Volume);
}

void PlayerStrip::mnuReload_Click() {
    live_.Reload();
}

} // namespace quillon
