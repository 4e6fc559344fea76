#pragma once

#include "ports/FolderLister.h"
#include "state/PlaybackState.h"

#include <optional>
#include <string>

namespace quillon {

/// A folder of recordings as a shuffle bag: each is drawn once before any is drawn again.
class ShuffleBag {
  public:
    /// `startup_step` says what is being done.
    ShuffleBag(ChatterState& chatter, FolderLister& lister, std::string& startup_step)
        : chatter_(chatter), lister_(lister), startup_step_(startup_step) {}

    /// Empties the bag and begins to list a folder, with whose "*.wav" files it is filled. A folder that is
    /// missing, or given by a relative path, counts as empty.
    void Fill(const std::string& folder);

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
    FolderLister& lister_;
    std::string& startup_step_;
};

} // namespace quillon
