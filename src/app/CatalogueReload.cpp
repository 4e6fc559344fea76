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
        if (cycle_.ActiveTimerId == 3) cycle_.ActiveTimerId = 1; // only Timer1 looks feeds up
    }
    if (cycle_ran) PutInCharge(cycle_, cycle_.ActiveTimerId);
}

} // namespace quillon
