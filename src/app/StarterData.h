#pragma once

#include "ports/Prompts.h"
#include "ports/Shell.h"
#include "state/Folders.h"
#include "state/ListView.h"

#include <string>
#include <vector>

namespace quillon {

/// A catalogue, airports and recordings to begin with. The folder "starter" beside the program holds them as
/// they will be in the user's data folder.
class StarterData {
  public:
    /// `startup_step` says what is being done.
    StarterData(const ListView& list, const Folders& folders, std::string& startup_step, Prompts& prompts,
                Shell& shell)
        : list_(list), folders_(folders), startup_step_(startup_step), prompts_(prompts), shell_(shell) {}

    /// Whether the data folder has no catalogue or no airports.
    bool FilesAreMissing();

    /// Whether nothing in the list can be played.
    bool NothingToHear() const;

    /// If there is starter data that the user lacks: asks whether to create it. Returns whether the answer was
    /// Yes.
    bool Offer();

    /// Creates the user's data folder and the files that it lacks. Existing files are not touched; those that
    /// an earlier run without a data folder left in its parent are moved into it. Raises the errors of
    /// runtime/Files.
    void Create();

    /// Whether Create has created the catalogue.
    bool CreatedCatalogue() const { return created_catalogue_; }

  private:
    std::string Source() { return shell_.ProgramFolder() + "starter\\"; }
    std::vector<std::string> Lacking();
    void MoveFromBareFolder(const std::string& bare);

    const ListView& list_;
    const Folders& folders_;
    std::string& startup_step_;
    Prompts& prompts_;
    Shell& shell_;
    bool created_catalogue_ = false;
};

} // namespace quillon
