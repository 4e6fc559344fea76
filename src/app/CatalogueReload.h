#pragma once

#include "catalogue/FeedLoader.h"
#include "state/PlaybackState.h"

namespace quillon {

/// What follows a command that may have changed the catalogue.
class CatalogueReload {
  public:
    CatalogueReload(CycleState& cycle, FeedLoader& loader) : cycle_(cycle), loader_(loader) {}

    /// Reloads the list, and resumes the cycle if it ran before the command. In Automatic mode the next tick
    /// retunes; in Manual mode the feed plays on.
    void Run(bool cycle_ran);

    /// The second half of Run, after the list has been loaded.
    void TakeUpList(bool cycle_ran);

  private:
    CycleState& cycle_;
    FeedLoader& loader_;
};

} // namespace quillon
