#pragma once

#include "playback/ScreenTexts.h"
#include "ports/MediaPlayer.h"
#include "state/PlaybackState.h"

namespace quillon {

/// Silences whatever plays, together with the cycle in charge, and brings both back.
class Mute {
  public:
    Mute(PlaybackState& state, ScreenTexts& texts, MediaPlayer& player)
        : state_(state), texts_(texts), player_(player) {}

    /// No effect if already muted, or not muted.
    void MuteSound();
    void UnMuteSound();

  private:
    void SetActiveTimer(bool enabled);

    PlaybackState& state_;
    ScreenTexts& texts_;
    MediaPlayer& player_;
};

} // namespace quillon
