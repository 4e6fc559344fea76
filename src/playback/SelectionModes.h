#pragma once

#include "ports/MediaPlayer.h"
#include "state/ProgramState.h"

namespace quillon {

/// Switches between following the radio and picking by hand.
class SelectionModes {
  public:
    SelectionModes(ProgramState& state, MediaPlayer& player) : state_(state), player_(player) {}

    void optAuto_Click();
    void optManual_Click();

  private:
    ProgramState& state_;
    MediaPlayer& player_;
};

} // namespace quillon
