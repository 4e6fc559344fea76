#pragma once

#include "ports/AnsiCodePage.h"
#include "ports/Prompts.h"
#include "ports/Shell.h"
#include "runtime/ErrorTrap.h"
#include "state/Folders.h"

#include <string>

namespace quillon {

/// The move from the user's application data into the folder "Data" beside the program.
class DataMove {
  public:
    /// `startup_step` says what is being done.
    DataMove(const Folders& folders, std::string& startup_step, Prompts& prompts, Shell& shell,
             AnsiCodePage& page, ErrorTrap& trap)
        : folders_(folders),
          startup_step_(startup_step),
          prompts_(prompts),
          shell_(shell),
          page_(page),
          trap_(trap) {}

    /// Tells the user that "Data" cannot be written to, and what is used instead.
    void TellRefused();

    /// If "Data" is used but empty: offers to copy into it what the user already has. Failures are reported.
    void OfferCopy();

  private:
    bool IsWanted(const std::string& from);
    void Copy(const std::string& from, const std::string& file);

    const Folders& folders_;
    std::string& startup_step_;
    Prompts& prompts_;
    Shell& shell_;
    AnsiCodePage& page_;
    ErrorTrap& trap_;
};

} // namespace quillon
