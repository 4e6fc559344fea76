#pragma once

#include "catalogue/FeedLoader.h"
#include "state/PlaybackState.h"

namespace quillon {

/// What follows a command that may have changed the catalogue.
class CatalogueReload {
  public:
    CatalogueReload(CycleState& cycle, FeedLoader& loader) : cycle_(cycle), loader_(loader) {}

    /// Loads the list anew and lets the cycle run if it did before the command. In Automatic mode the next tick
    /// tunes anew; in Manual mode what plays goes on.
    void Run(bool cycle_ran);

    /// The second half of Run, for a list that has just been loaded.
    void TakeUpList(bool cycle_ran);

  private:
    CycleState& cycle_;
    FeedLoader& loader_;
};

} // namespace quillon
