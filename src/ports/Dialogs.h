#pragma once

#include "state/Folders.h"
#include "state/Forms.h"

namespace quillon {

/// The program's small modal dialogs. No other handler of the program runs while one is open.
class Dialogs {
  public:
    virtual ~Dialogs() = default;

    /// Shows `frmMuteKey` with that option (1 to 4) selected, 0 for none. Returns the option that the user set,
    /// 0 when the dialog was closed without setting one.
    virtual int MuteKey(int option) = 0;

    /// Shows the program's version and licence. Returns whether the user wants the system information.
    virtual bool About() = 0;

    /// Shows the program's folders. Returns the one that the user wants to open, or an empty text.
    virtual std::string ProgramFolders(const Folders& folders) = 0;
};

} // namespace quillon
