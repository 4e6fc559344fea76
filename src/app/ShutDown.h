#pragma once

#include "app/RegionalNumbers.h"
#include "ports/Background.h"
#include "ports/MediaPlayer.h"
#include "settings/RememberedState.h"
#include "settings/Settings.h"
#include "simlink/FsuipcClient.h"
#include "state/Forms.h"

namespace quillon {

/// Ends the program; every call after the first does nothing.
class ShutDown {
  public:
    /// `ended` is set once the program has ended.
    ShutDown(bool& ended, frmATC& form, Settings& settings, RememberedState& remembered,
             RegionalNumbers& regional, FsuipcClient& link, Background& background, MediaPlayer& player)
        : ended_(ended),
          form_(form),
          settings_(settings),
          remembered_(remembered),
          regional_(regional),
          link_(link),
          background_(background),
          player_(player) {}

    /// Writes the settings and the remembered values, restores the user's separators, closes the link and ends
    /// the program.
    void Run();

    /// The same without writing anything.
    void RunUnsaved();

  private:
    bool& ended_;
    frmATC& form_;
    Settings& settings_;
    RememberedState& remembered_;
    RegionalNumbers& regional_;
    FsuipcClient& link_;
    Background& background_;
    MediaPlayer& player_;
};

} // namespace quillon
