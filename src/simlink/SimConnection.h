#pragma once

#include "ports/Clock.h"
#include "simlink/FsuipcClient.h"
#include "state/ProgramState.h"

#include <string>

namespace quillon {

/// FSUIPC's version word as shown: four digits, and a letter for a build between versions. 0x34560001 is
/// "3.456a".
std::string VersionText(std::int32_t version_word);

/// Why this version of the module will not do for that simulator; empty when it will.
std::string TooOldText(const std::string& simulator, const std::string& version_text);

/// Makes the link to the simulator at start.
class SimConnection {
  public:
    SimConnection(ProgramState& state, FsuipcClient& link, Clock& clock)
        : state_(state), link_(link), clock_(clock) {}

    /// Tries every two seconds, serving window events, until the simulator answers. Returns false when the user
    /// chose Manual mode, or ended the program, while it waited.
    bool Connect();

    /// After Connect: sets the version text and `SimConnected`. Returns what the user must be told when the
    /// module is too old to work with, else an empty text.
    std::string CheckVersion();

  private:
    ProgramState& state_;
    FsuipcClient& link_;
    Clock& clock_;
};

} // namespace quillon
