#pragma once

#include "playback/ScreenTexts.h"
#include "ports/Dialogs.h"
#include "ports/Prompts.h"
#include "ports/Shell.h"
#include "runtime/ErrorTrap.h"
#include "state/ProgramState.h"

#include <cstdint>

namespace quillon {

/// The "Preferences" menu with its frames and prompts. The settings file keeps the choices.
class Preferences {
  public:
    Preferences(ProgramState& state, ScreenTexts& texts, Prompts& prompts, Dialogs& dialogs, Shell& shell,
                ErrorTrap& trap)
        : state_(state), texts_(texts), prompts_(prompts), dialogs_(dialogs), shell_(shell), trap_(trap) {}

    void mnuSelComm_Click();
    void cmdComClose_Click();

    /// One of the four radio buttons, by its number, was clicked. The cycles follow that radio from the next
    /// tick.
    void SelectRadio(std::int16_t number);

    void mnuRecordedChatter_Click();
    void cmdClose2_Click();

    /// The user picked an entry from the list of shortest or longest gaps. The two are not compared.
    void cboMin_Click(std::size_t entry);
    void cboMax_Click(std::size_t entry);

    /// Shows the dialog of the mute key; the new key works from the next poll.
    void mnuSetMute_Click();

    /// Asks for the reception range. An empty answer, or one out of range, keeps the old one.
    void mnuRange_Click();

    /// A click on the window's background.
    void Form_Click();

  private:
    void SetRange(const std::string& answer);

    ProgramState& state_;
    ScreenTexts& texts_;
    Prompts& prompts_;
    Dialogs& dialogs_;
    Shell& shell_;
    ErrorTrap& trap_;
};

} // namespace quillon
