#pragma once

#include "playback/FeedChoice.h"
#include "playback/PlayerDisplay.h"
#include "playback/ShuffleBag.h"
#include "playback/SimWatch.h"
#include "runtime/ErrorTrap.h"
#include "state/ListView.h"

namespace quillon {

/// `Timer1`: once a second, follows the master radio, looks a changed frequency up in the list and starts its
/// feed.
class AutomaticTuning {
  public:
    AutomaticTuning(PlaybackState& state, const ListView& list, ScreenTexts& texts, SimWatch& sim,
                    FeedChoice& choice, PlayerDisplay& display, MediaPlayer& player, ShuffleBag& bag,
                    ErrorTrap& trap)
        : state_(state),
          list_(list),
          texts_(texts),
          sim_(sim),
          choice_(choice),
          display_(display),
          player_(player),
          bag_(bag),
          trap_(trap) {}

    void Timer1_Timer();

  private:
    void Tick();
    bool FrequencyChanged();
    void FollowRange();
    void Retune();
    void PlayRow(std::size_t row);
    void ShowNoFeed();
    void StartFolder();

    PlaybackState& state_;
    const ListView& list_;
    ScreenTexts& texts_;
    SimWatch& sim_;
    FeedChoice& choice_;
    PlayerDisplay& display_;
    MediaPlayer& player_;
    ShuffleBag& bag_;
    ErrorTrap& trap_;
};

} // namespace quillon
