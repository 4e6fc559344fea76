#pragma once

#include "playback/PlayerDisplay.h"
#include "playback/ShuffleBag.h"
#include "runtime/ErrorTrap.h"

namespace quillon {

/// `Timer2`: in Manual mode, starts the feed that was picked by hand and keeps the display up to date.
class ManualMonitoring {
  public:
    ManualMonitoring(PlaybackState& state, ScreenTexts& texts, PlayerDisplay& display, MediaPlayer& player,
                     ShuffleBag& bag, ErrorTrap& trap)
        : state_(state), texts_(texts), display_(display), player_(player), bag_(bag), trap_(trap) {}

    void Timer2_Timer();

  private:
    void Tick();
    void StartPickedFeed();
    void StartStream();

    PlaybackState& state_;
    ScreenTexts& texts_;
    PlayerDisplay& display_;
    MediaPlayer& player_;
    ShuffleBag& bag_;
    ErrorTrap& trap_;
};

} // namespace quillon
