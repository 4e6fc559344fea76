#pragma once

#include "ports/LiveFeed.h"
#include "ports/MediaPlayer.h"
#include "ports/Shell.h"
#include "state/ProgramState.h"

#include <string>

namespace quillon {

/// Tells the user what the player is doing: status bar, caption suffix and label.
class PlayerDisplay {
  public:
    PlayerDisplay(ProgramState& state, MediaPlayer& player, const LiveFeed& live, Shell& shell)
        : state_(state), player_(player), live_(live), shell_(shell) {}

    /// Turns the player's state into the first panel's text, the caption and, while it plays, `Label2`; what
    /// the station says of itself becomes the third panel's tool tip.
    void GetWMPState();

    /// Shows an address in the fourth panel, its last 28 characters if it is longer.
    void DisplayURL(const std::string& address);

    /// Opens the live ATC service's home page.
    void picATCNet_Click();

  private:
    const char* ShowPlaying();

    ProgramState& state_;
    MediaPlayer& player_;
    const LiveFeed& live_;
    Shell& shell_;
};

} // namespace quillon
