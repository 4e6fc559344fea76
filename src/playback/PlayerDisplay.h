#pragma once

#include "playback/ScreenTexts.h"
#include "ports/LiveFeed.h"
#include "ports/MediaPlayer.h"
#include "ports/Shell.h"
#include "state/PlaybackState.h"

namespace quillon {

/// Shows what the player is doing.
class PlayerDisplay {
  public:
    PlayerDisplay(PlaybackState& state, ScreenTexts& texts, MediaPlayer& player, const LiveFeed& live,
                  Shell& shell)
        : state_(state), texts_(texts), player_(player), live_(live), shell_(shell) {}

    /// Turns the player's state into the first panel's text, the caption and, while it plays, `Label2`; shows
    /// what the station says of itself, and why a feed is silent.
    void GetWMPState();

    /// Opens the live ATC service's home page.
    void picATCNet_Click();

  private:
    Activity ShowPlaying();

    PlaybackState& state_;
    ScreenTexts& texts_;
    MediaPlayer& player_;
    const LiveFeed& live_;
    Shell& shell_;
};

} // namespace quillon
