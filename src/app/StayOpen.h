#pragma once

#include "app/ShutDown.h"
#include "playback/SimWatch.h"
#include "ports/Prompts.h"
#include "simlink/SimConnection.h"

#include <string>

namespace quillon {

/// Ends the program with the simulator, or keeps it open for the next one if the user has marked that.
class StayOpen : public SimPresence {
  public:
    StayOpen(PlaybackState& state, SimConnection& connection, Settings& settings, RememberedState& remembered,
             ShutDown& shut_down, Prompts& prompts)
        : state_(state),
          connection_(connection),
          settings_(settings),
          remembered_(remembered),
          shut_down_(shut_down),
          prompts_(prompts) {}

    bool Gone() override;
    bool Back() override;

  private:
    PlaybackState& state_;
    SimConnection& connection_;
    Settings& settings_;
    RememberedState& remembered_;
    ShutDown& shut_down_;
    Prompts& prompts_;
    std::string told_; ///< why the present simulator is not followed
};

} // namespace quillon
