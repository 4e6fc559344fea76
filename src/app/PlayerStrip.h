#pragma once

#include "playback/Mute.h"
#include "ports/LiveFeed.h"
#include "state/ProgramState.h"

namespace quillon {

/// The play, pause and stop buttons and the volume of the main window, and the command that reloads the feed.
class PlayerStrip {
  public:
    PlayerStrip(ProgramState& state, MediaPlayer& player, LiveFeed& live, Mute& mute)
        : state_(state), player_(player), live_(live), mute_(mute) {}

    void cmdPlay_Click();
    void cmdPause_Click();
    void cmdStop_Click();
    void sldVolume_Change(int volume);

    /// Connects the current stream anew; what is silent stays silent.
    void mnuReload_Click();

  private:
    ProgramState& state_;
    MediaPlayer& player_;
    LiveFeed& live_;
    Mute& mute_;
};

} // namespace quillon
