#include "app/PlayerStrip.h"

#include <algorithm>

namespace quillon {

void PlayerStrip::Play() {
    if (state_.mute.Muted)
        mute_.UnMuteSound();
    else if (state_.cycle.optManual())
        player_.Play();
}

void PlayerStrip::Pause() {
    if (state_.cycle.optManual())
        player_.Pause();
    else
        mute_.MuteSound();
}

void PlayerStrip::Stop() {
    if (state_.cycle.optManual())
        player_.Stop();
    else
        mute_.MuteSound();
}

void PlayerStrip::SetVolume(int volume) {
    volume_ = std::clamp(volume, 0, 100);
    player_.SetVolume(volume_);
}

void PlayerStrip::ReloadFeed() {
    live_.Reload();
}

} // namespace quillon
