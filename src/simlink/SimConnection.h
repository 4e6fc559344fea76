#pragma once

#include "ports/Background.h"
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
    SimConnection(RadioState& radio, FsuipcClient& link, Background& background, Clock& clock)
        : radio_(radio), link_(link), background_(background), clock_(clock) {}

    /// Tries to open the link until the simulator answers, serving events meanwhile, as long as `wanted` says
    /// so. Calls `failed` after each failure. Returns whether the link is open; `Connecting` is over then.
    bool Connect(const std::function<bool()>& wanted, const std::function<void()>& failed);

    /// After Connect: sets the version text and `SimConnected`. Returns what to tell the user if the module is
    /// too old, else an empty text.
    std::string CheckVersion();

  private:
    bool Open(const std::function<bool()>& wanted);

    RadioState& radio_;
    FsuipcClient& link_;
    Background& background_;
    Clock& clock_;
};

} // namespace quillon
