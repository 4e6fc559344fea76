#pragma once

#include "playback/ChatterSchedule.h"
#include "playback/PlayerDisplay.h"
#include "playback/SimWatch.h"
#include "runtime/ErrorTrap.h"

namespace quillon {

/// `Timer3` and `Timer4`: in charge while the feed is a folder of recordings. One recording plays, a gap of
/// random length follows its end, then the next one plays.
class RecordedChatter {
  public:
    RecordedChatter(ProgramState& state, SimWatch& sim, PlayerDisplay& display, MediaPlayer& player,
                    Clock& clock, ErrorTrap& trap)
        : state_(state), sim_(sim), display_(display), player_(player), schedule_(state, clock), trap_(trap) {}

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

    ProgramState& state_;
    SimWatch& sim_;
    PlayerDisplay& display_;
    MediaPlayer& player_;
    ChatterSchedule schedule_;
    ErrorTrap& trap_;
};

} // namespace quillon
