#pragma once

#include "ports/Prompts.h"
#include "ports/Shell.h"
#include "state/ProgramState.h"

#include <string>
#include <vector>

namespace quillon {

/// A catalogue, airports and recordings to begin with. They lie in the folder "starter" beside the program, as
/// they are to lie in the user's data folder.
class StarterData {
  public:
    StarterData(ProgramState& state, Prompts& prompts, Shell& shell)
        : state_(state), prompts_(prompts), shell_(shell) {}

    /// After a start that found no catalogue, no airports or nothing that can be played: asks the user whether
    /// to create what is missing, if there is anything to create it from. Returns whether the answer was Yes.
    bool Offer();

    /// Creates the user's data folder and the files that it lacks. What is there is not touched; what an
    /// earlier run without a data folder has left beside it is moved into it. Raises the errors of
    /// runtime/Files.
    void Create();

  private:
    std::string Source() { return shell_.ProgramFolder() + "starter\\"; }
    std::string Target() { return shell_.ApplicationDataFolder() + "\\Quillon\\"; }
    bool Needed();
    bool NothingToHear() const;
    std::vector<std::string> Lacking();
    void MoveFromBareFolder();

    ProgramState& state_;
    Prompts& prompts_;
    Shell& shell_;
};

} // namespace quillon
