#pragma once

#include "ports/MediaPlayer.h"
#include "state/ProgramState.h"

namespace quillon {

/// Silences whatever plays, together with the cycle in charge, and brings both back.
class Mute {
  public:
    Mute(ProgramState& state, MediaPlayer& player) : state_(state), player_(player) {}

    /// Each does nothing when that is how it already is.
    void MuteSound();
    void UnMuteSound();

  private:
    bool ActiveTimerRuns() const;
    void SetActiveTimer(bool enabled);

    ProgramState& state_;
    MediaPlayer& player_;
};

} // namespace quillon
