#include "app/CatalogueReload.h"

#include "playback/CurrentFeed.h"

namespace quillon {

void CatalogueReload::Run(bool cycle_ran) {
    loader_.LoadList();
    TakeUpList(cycle_ran);
}

void CatalogueReload::TakeUpList(bool cycle_ran) {
    if (!cycle_.optManual()) {
        cycle_.ForceRetune = true;
        // Only that one looks feeds up.
        if (cycle_.ActiveTimerId == AutomaticChatterCycle) cycle_.ActiveTimerId = AutomaticTuningCycle;
    }
    if (cycle_ran) PutInCharge(cycle_, cycle_.ActiveTimerId);
}

} // namespace quillon
