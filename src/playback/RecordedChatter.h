#pragma once

#include "playback/ChatterSchedule.h"
#include "playback/SimWatch.h"
#include "runtime/ErrorTrap.h"

namespace quillon {

/// `Timer3` and `Timer4`: in charge while the feed is a folder of recordings. One recording plays, a gap of
/// random length follows its end, then the next one plays.
class RecordedChatter {
  public:
    /// `last_search_text` is forgotten when a recording starts.
    RecordedChatter(PlaybackState& state, std::string& last_search_text, ScreenTexts& texts, SimWatch& sim,
                    MediaPlayer& player, Clock& clock, ErrorTrap& trap)
        : state_(state),
          last_search_text_(last_search_text),
          texts_(texts),
          sim_(sim),
          player_(player),
          schedule_(state.chatter, texts, clock, trap.StartupStep()),
          trap_(trap) {}

    /// The feed was tuned: keeps following the simulator, is heard in range only, and hands back to `Timer1`
    /// when the radio is retuned.
    void Timer3_Timer();

    /// The feed was picked by hand: heard whatever the range, and the first recording at once.
    void Timer4_Timer();

  private:
    void AutomaticTick();
    void ManualTick();
    bool FollowSimulator();
    bool Retuned();
    void HandBack(std::int16_t timer_id);
    bool RecordingPlays();
    void PlayNextInRange();
    void HurryFirstPick();
    void PlayNextAnywhere();
    void ShowPlaying(const std::string& path);

    PlaybackState& state_;
    std::string& last_search_text_;
    ScreenTexts& texts_;
    SimWatch& sim_;
    MediaPlayer& player_;
    ChatterSchedule schedule_;
    ErrorTrap& trap_;
};

} // namespace quillon
