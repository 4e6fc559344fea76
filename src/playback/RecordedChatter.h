#pragma once

#include "playback/ChatterSchedule.h"
#include "playback/FeedChoice.h"
#include "playback/SimWatch.h"
#include "runtime/ErrorTrap.h"

namespace quillon {

/// `Timer3` and `Timer4`: play a folder of recordings, with a random gap after each.
class RecordedChatter {
  public:
    /// `last_search_text` is forgotten when a recording starts.
    RecordedChatter(PlaybackState& state, std::string& last_search_text, ScreenTexts& texts, SimWatch& sim,
                    FeedChoice& choice, MediaPlayer& player, ShuffleBag& bag, Clock& clock, ErrorTrap& trap)
        : state_(state),
          last_search_text_(last_search_text),
          texts_(texts),
          sim_(sim),
          choice_(choice),
          player_(player),
          schedule_(state.chatter, bag, texts, clock, trap.StartupStep()),
          trap_(trap) {}

    /// For a tuned feed: follows the simulator, plays only in range, and hands back to `Timer1` when the radio
    /// is retuned or another airport's feed takes over.
    void Timer3_Timer();

    /// For a feed picked by hand: plays whatever the range, the first recording at once.
    void Timer4_Timer();

  private:
    void AutomaticTick();
    void ManualTick();
    bool FollowSimulator();
    bool Retuned();
    void HandBack(Cycle cycle);
    bool RecordingPlays();
    void PlayNextInRange();
    void ShowHeld();
    void HurryFirstPick();
    void PlayNextAnywhere();
    void ShowPlaying(const std::string& path);

    PlaybackState& state_;
    std::string& last_search_text_;
    ScreenTexts& texts_;
    SimWatch& sim_;
    FeedChoice& choice_;
    MediaPlayer& player_;
    ChatterSchedule schedule_;
    ErrorTrap& trap_;
};

} // namespace quillon
