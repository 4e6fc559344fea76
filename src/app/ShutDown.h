#pragma once

#include "app/RegionalNumbers.h"
#include "ports/MediaPlayer.h"
#include "settings/RememberedState.h"
#include "settings/Settings.h"
#include "simlink/FsuipcClient.h"
#include "state/ProgramState.h"

namespace quillon {

/// The way out. It is taken once, whichever caller comes first.
class ShutDown {
  public:
    ShutDown(ProgramState& state, Settings& settings, RememberedState& remembered, RegionalNumbers& regional,
             FsuipcClient& link, MediaPlayer& player)
        : state_(state),
          settings_(settings),
          remembered_(remembered),
          regional_(regional),
          link_(link),
          player_(player) {}

    /// Writes the settings and what is to be remembered, puts the user's separators back, closes the link and
    /// ends the program.
    void Run();

    /// The same without writing anything.
    void RunUnsaved();

  private:
    ProgramState& state_;
    Settings& settings_;
    RememberedState& remembered_;
    RegionalNumbers& regional_;
    FsuipcClient& link_;
    MediaPlayer& player_;
};

} // namespace quillon
