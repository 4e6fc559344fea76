#pragma once

#include "playback/Mute.h"
#include "ports/Clock.h"
#include "ports/Display.h"
#include "ports/Keyboard.h"

namespace quillon {

/// `Timer5`: watches the mute key, whichever program has the keyboard's focus.
class MuteKey {
  public:
    MuteKey(PlaybackState& state, Mute& mute, Keyboard& keyboard, Display& display, Clock& clock)
        : state_(state), mute_(mute), keyboard_(keyboard), display_(display), clock_(clock) {}

    /// If the key is down, alone and not in a box of Quillon's own, toggles mute and then blocks until the
    /// clock's next second, so that a held key toggles once a second.
    void Timer5_Timer();

  private:
    bool Pressed();
    bool IsMeant();
    void BlockForTheRestOfTheSecond();

    PlaybackState& state_;
    Mute& mute_;
    Keyboard& keyboard_;
    Display& display_;
    Clock& clock_;
    bool ignored_ = false; ///< the key, while it is down
};

} // namespace quillon
