#pragma once

#include "ports/Dialogs.h"
#include "ports/Prompts.h"
#include "ports/Shell.h"
#include "runtime/ErrorTrap.h"
#include "state/ProgramState.h"

#include <cstdint>

namespace quillon {

/// The "Preferences" menu and the frames and prompts behind it. The settings file keeps what is chosen.
class Preferences {
  public:
    Preferences(ProgramState& state, Prompts& prompts, Dialogs& dialogs, Shell& shell, ErrorTrap& trap)
        : state_(state), prompts_(prompts), dialogs_(dialogs), shell_(shell), trap_(trap) {}

    void mnuSelComm_Click();
    void cmdComClose_Click();

    /// One of the four radio buttons, by its number; the cycles follow that radio from their next tick on.
    void optCom_Click(std::int16_t number);

    void mnuRecordedChatter_Click();
    void cmdClose2_Click();

    /// An entry of the gap's bounds was picked from its list. The bounds are not compared with each other.
    void cboMin_Click(std::size_t entry);
    void cboMax_Click(std::size_t entry);

    /// Shows the dialog of the mute key; the new key counts from the next poll on.
    void mnuSetMute_Click();

    /// Asks for the reception range. An empty answer, or one that fits no range, keeps the old one.
    void mnuRange_Click();

    /// A click on the window's background.
    void Form_Click();

  private:
    void SetRange(const std::string& answer);

    ProgramState& state_;
    Prompts& prompts_;
    Dialogs& dialogs_;
    Shell& shell_;
    ErrorTrap& trap_;
};

} // namespace quillon
