#include "app/CatalogueReload.h"

#include "playback/CurrentFeed.h"

namespace quillon {

void CatalogueReload::Run(bool cycle_ran) {
    loader_.LoadList();
    TakeUpList(cycle_ran);
}

void CatalogueReload::TakeUpList(bool cycle_ran) {
    FeedState& feed = state_.feed;
    if (!state_.form.optManual()) {
        feed.ForceRetune = true;
        if (feed.ActiveTimerId == 3) feed.ActiveTimerId = 1; // only Timer1 looks feeds up
    }
    if (cycle_ran) PutInCharge(state_, feed.ActiveTimerId);
}

} // namespace quillon
