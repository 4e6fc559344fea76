#pragma once

#include "simlink/FsuipcClient.h"
#include "state/PlaybackState.h"

#include <functional>
#include <string>

namespace quillon {

/// FSUIPC's version word as shown: four digits, and a letter for a build between versions. 0x34560001 is
/// "3.456a".
std::string VersionText(std::int32_t version_word);

/// What to tell the user if this version of the module is too old for that simulator, else empty.
std::string TooOldText(const std::string& simulator, const std::string& version_text);

/// Makes the link to the simulator at start.
class SimConnection {
  public:
    SimConnection(RadioState& radio, FsuipcClient& link) : radio_(radio), link_(link) {}

    /// Tries until the simulator answers. Calls `wait` after each failure, which returns whether to try again.
    /// Returns whether the link is open.
    bool Connect(const std::function<bool()>& wait);

    /// After Connect: sets the version text and `SimConnected`. Returns what to tell the user if the module is
    /// too old, else an empty text.
    std::string CheckVersion();

  private:
    RadioState& radio_;
    FsuipcClient& link_;
};

} // namespace quillon
