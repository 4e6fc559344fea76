#pragma once

#include "app/RegionalNumbers.h"
#include "catalogue/Settings.h"
#include "ports/MediaPlayer.h"
#include "simlink/FsuipcClient.h"
#include "state/ProgramState.h"

namespace quillon {

/// The way out. It is taken once, whichever caller comes first.
class ShutDown {
  public:
    ShutDown(ProgramState& state, Settings& settings, RegionalNumbers& regional, FsuipcClient& link,
             MediaPlayer& player)
        : state_(state), settings_(settings), regional_(regional), link_(link), player_(player) {}

    /// Writes the settings, puts the user's separators back, closes the link and ends the program.
    void Run();

    /// The same without writing the settings.
    void RunUnsaved();

  private:
    ProgramState& state_;
    Settings& settings_;
    RegionalNumbers& regional_;
    FsuipcClient& link_;
    MediaPlayer& player_;
};

} // namespace quillon
