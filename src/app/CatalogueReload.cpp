#include "app/CatalogueReload.h"

#include "playback/CurrentFeed.h"

namespace quillon {

void CatalogueReload::Run() {
    loader_.LoadList();
    FeedState& feed = state_.feed;
    if (!state_.form.optManual()) {
        feed.ForceRetune = true;
        if (feed.ActiveTimerId == 3) feed.ActiveTimerId = 1; // only Timer1 looks feeds up
    }
    ResumeCycle(state_);
}

} // namespace quillon
