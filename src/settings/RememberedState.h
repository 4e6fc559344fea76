#pragma once

#include "state/Folders.h"
#include "state/Forms.h"

#include <array>
#include <string>
#include <string_view>

namespace quillon {

/// What the program remembers from one run to the next besides its settings.
struct RememberedValues {
    int Volume = 100;      ///< of the player strip, 0 to 100
    std::string UserAgent; ///< what servers are told; empty: the program's own name
    WindowSize Window;
    std::array<int, 4> Columns{}; ///< widths of the list's columns, twips; 0 is the first one

    bool operator==(const RememberedValues&) const = default;
};

/// Values of lines "key=value". Defaults stand in for keys that are missing and values that make no sense;
/// other keys are ignored, and the last of equal ones counts.
RememberedValues ParseRemembered(std::string_view bytes);

/// The lines for all keys.
std::string RememberedText(const RememberedValues& values);

inline constexpr const char* RememberedName = "Quillon.state";

/// The file beside the settings file. Nothing that goes wrong with it is worth a message.
class RememberedState {
  public:
    RememberedState(frmATC& form, std::string& user_agent, const Folders& folders)
        : form_(form), user_agent_(user_agent), folders_(folders) {}

    /// Puts the file's values in force, or the defaults.
    void Read();

    /// Writes the values in force, unless this run has not read the file or could not read an existing one.
    void Write();

  private:
    std::string Path() const { return folders_.DataPath + RememberedName; }

    frmATC& form_;
    std::string& user_agent_;
    const Folders& folders_;
    bool may_write_ = false;
};

} // namespace quillon
