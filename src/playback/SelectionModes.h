#pragma once

#include "playback/ScreenTexts.h"
#include "ports/MediaPlayer.h"
#include "state/ListView.h"
#include "state/PlaybackState.h"

namespace quillon {

/// Switches between following the radio and picking by hand.
class SelectionModes {
  public:
    SelectionModes(PlaybackState& state, ListView& list, ScreenTexts& texts, MediaPlayer& player)
        : state_(state), list_(list), texts_(texts), player_(player) {}

    void optAuto_Click();
    void optManual_Click();

  private:
    PlaybackState& state_;
    ListView& list_;
    ScreenTexts& texts_;
    MediaPlayer& player_;
};

} // namespace quillon
