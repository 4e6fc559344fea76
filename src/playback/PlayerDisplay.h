#pragma once

#include "ports/MediaPlayer.h"
#include "ports/Shell.h"
#include "state/ProgramState.h"

#include <string>

namespace quillon {

/// Tells the user what the player is doing: status bar, caption suffix and label.
class PlayerDisplay {
  public:
    PlayerDisplay(ProgramState& state, MediaPlayer& player, Shell& shell)
        : state_(state), player_(player), shell_(shell) {}

    /// Turns the player's state into the first panel's text, the caption and, while it plays, `Label2`.
    void GetWMPState();

    /// Shows an address in the fourth panel, its last 28 characters if it is longer.
    void DisplayURL(const std::string& address);

    /// Opens the live ATC service's home page.
    void picATCNet_Click();

  private:
    const char* ShowPlaying();

    ProgramState& state_;
    MediaPlayer& player_;
    Shell& shell_;
};

} // namespace quillon
