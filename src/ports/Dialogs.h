#pragma once

#include "state/Folders.h"
#include "state/Forms.h"

namespace quillon {

/// The program's small modal dialogs. While one is up, the program's other handlers do not run.
class Dialogs {
  public:
    virtual ~Dialogs() = default;

    /// Shows `frmMuteKey` with that option (1 to 4) selected, 0 for none. Returns the option that the user set,
    /// 0 when the dialog was closed without setting one.
    virtual int MuteKey(int option) = 0;

    /// Shows the program's version and licence. Returns whether the user asks for the system's information.
    virtual bool About() = 0;

    /// Shows the program's folders. Returns the one that the user wants to see opened, empty for none.
    virtual std::string ProgramFolders(const Folders& folders) = 0;
};

} // namespace quillon
