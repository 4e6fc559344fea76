#pragma once

#include "ports/FolderLister.h"
#include "state/Folders.h"
#include "state/PlaybackState.h"

#include <optional>
#include <string>

namespace quillon {

/// A folder of recordings as a shuffle bag: each is drawn once before any is drawn again.
class ShuffleBag {
  public:
    /// `startup_step` says what is being done.
    ShuffleBag(ChatterState& chatter, const Folders& folders, FolderLister& lister, std::string& startup_step)
        : chatter_(chatter), folders_(folders), lister_(lister), startup_step_(startup_step) {}

    /// Empties the bag and begins to list the folder of a feed, with whose "*.wav" files it is filled. A folder
    /// that is missing counts as empty.
    void Fill(const std::string& url);

    /// Lists the bag's folder again.
    void Refill();

    /// Takes up what the folder holds once it has been listed. Returns what is known of it.
    ChatterFolder Look();

    /// Moves one recording from the bag to the played list and returns its path; returns nothing if the bag is
    /// empty. `r` in [0, 1) picks it.
    std::optional<std::string> Draw(double r);

  private:
    void List();

    ChatterState& chatter_;
    const Folders& folders_;
    FolderLister& lister_;
    std::string& startup_step_;
};

} // namespace quillon
