#pragma once

#include "ports/Clock.h"
#include "ports/Printer.h"
#include "ports/Prompts.h"
#include "runtime/ErrorTrap.h"
#include "state/Forms.h"

namespace quillon {

/// Prints the list of feeds in its present order.
class PrintCommand {
  public:
    /// `last_search_text` is forgotten once the list is printed.
    PrintCommand(frmATC& form, std::string& last_search_text, Prompts& prompts, Printer& printer, Clock& clock,
                 ErrorTrap& trap)
        : form_(form),
          last_search_text_(last_search_text),
          prompts_(prompts),
          printer_(printer),
          clock_(clock),
          trap_(trap) {}

    /// Asks, lets the user choose a printer and prints. Cancelling at any point ends it without a message.
    void mnuPrint_Click();

  private:
    void Print();
    bool PrintList();
    bool PrintPages(PrintJob& job, std::int16_t sheets);

    frmATC& form_;
    std::string& last_search_text_;
    Prompts& prompts_;
    Printer& printer_;
    Clock& clock_;
    ErrorTrap& trap_;
};

} // namespace quillon
