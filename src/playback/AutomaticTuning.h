#pragma once

#include "playback/PlayerDisplay.h"
#include "playback/SimWatch.h"
#include "runtime/ErrorTrap.h"
#include "state/ListView.h"

namespace quillon {

/// `Timer1`: once a second, follows the master radio, looks a changed frequency up in the list and starts its
/// feed.
class AutomaticTuning {
  public:
    AutomaticTuning(PlaybackState& state, ListView& list, ScreenTexts& texts, SimWatch& sim,
                    PlayerDisplay& display, MediaPlayer& player, ErrorTrap& trap)
        : state_(state),
          list_(list),
          texts_(texts),
          sim_(sim),
          display_(display),
          player_(player),
          trap_(trap) {}

    void Timer1_Timer();

  private:
    void Tick();
    bool FrequencyChanged();
    void Retune();
    void ShowNoFeed();
    void StartStream(std::size_t row);
    void StartFolder();

    PlaybackState& state_;
    ListView& list_;
    ScreenTexts& texts_;
    SimWatch& sim_;
    PlayerDisplay& display_;
    MediaPlayer& player_;
    ErrorTrap& trap_;
};

} // namespace quillon
