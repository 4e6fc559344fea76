#pragma once

#include "playback/PlayerDisplay.h"
#include "playback/SimWatch.h"
#include "runtime/ErrorTrap.h"

namespace quillon {

/// `Timer3`: in charge while the tuned feed is a folder of recordings; keeps following the simulator and hands
/// back to `Timer1` when the radio is retuned.
class RecordedChatter {
  public:
    RecordedChatter(ProgramState& state, SimWatch& sim, ErrorTrap& trap)
        : state_(state), sim_(sim), trap_(trap) {}

    void Timer3_Timer();

  private:
    void Tick();
    bool Retuned();

    ProgramState& state_;
    SimWatch& sim_;
    ErrorTrap& trap_;
};

} // namespace quillon
