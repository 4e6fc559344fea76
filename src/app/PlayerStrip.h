#pragma once

#include "playback/Mute.h"

namespace quillon {

/// The play, pause and stop buttons and the volume of the main window.
class PlayerStrip {
  public:
    PlayerStrip(ProgramState& state, MediaPlayer& player, Mute& mute)
        : state_(state), player_(player), mute_(mute) {}

    void cmdPlay_Click();
    void cmdPause_Click();
    void cmdStop_Click();
    void sldVolume_Change(int volume);

  private:
    ProgramState& state_;
    MediaPlayer& player_;
    Mute& mute_;
};

} // namespace quillon
