#pragma once

#include "app/CatalogueReload.h"
#include "ports/Clock.h"
#include "ports/Prompts.h"
#include "ports/Shell.h"
#include "ports/UserFiles.h"
#include "runtime/ErrorTrap.h"
#include "state/ProgramState.h"

namespace quillon {

/// The commands that maintain the catalogue's file: backing it up, restoring it, editing it by hand.
class Maintenance {
  public:
    Maintenance(ProgramState& state, Prompts& prompts, Shell& shell, UserFiles& files, Clock& clock,
                CatalogueReload& reload, ErrorTrap& trap)
        : state_(state),
          prompts_(prompts),
          shell_(shell),
          files_(files),
          clock_(clock),
          reload_(reload),
          trap_(trap) {}

    /// Copies the catalogue over its backup, whose date becomes the present time.
    void mnuBackup_Click();

    /// Copies the catalogue to `ReplacedName`, moves it to the Recycle Bin and replaces it with the backup.
    void mnuRestore_Click();

    /// Opens the catalogue in Notepad and waits until Notepad is closed, serving window events meanwhile;
    /// returns early when the program is ending.
    void mnuEditData_Click();

  private:
    void BackUp();
    void Restore();
    void Edit();
    void ShellAndWait(const std::string& program, const std::string& file);

    ProgramState& state_;
    Prompts& prompts_;
    Shell& shell_;
    UserFiles& files_;
    Clock& clock_;
    CatalogueReload& reload_;
    ErrorTrap& trap_;
};

} // namespace quillon
