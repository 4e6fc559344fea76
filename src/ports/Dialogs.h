#pragma once

#include "state/Folders.h"

#include <optional>
#include <string>

namespace quillon {

/// The program's small modal dialogs. No other handler of the program runs while one is open.
class Dialogs {
  public:
    virtual ~Dialogs() = default;

    /// Shows `frmMuteKey` with that key's option selected. Returns the key that the user set (NoMuteKey for
    /// none), nothing if the user cancelled.
    virtual std::optional<int> MuteKey(int key) = 0;

    /// Shows the program's version and licence. Returns whether the user wants the system information.
    virtual bool About() = 0;

    /// Shows the program's folders. Returns the one that the user wants to open, or an empty text.
    virtual std::string ProgramFolders(const Folders& folders) = 0;
};

} // namespace quillon
