#include "app/CatalogueWatch.h"

#include "catalogue/FeedFile.h"

namespace quillon {

CatalogueWatch::CatalogueWatch(ProgramState& state, HandlerGate& gate, Background& disk, AnsiCodePage& page,
                               Clock& clock, QuietReload& reload, Airports& airports,
                               AirportPositions& positions)
    : state_(state),
      gate_(gate),
      reload_(reload),
      airports_(airports),
      positions_(positions),
      catalogue_(disk, page, clock,
                 [this](const TextVersion& version) { Enter([this, version] { reload_.TakeUp(version); }); }),
      airport_file_(disk, page, clock, [this](const TextVersion& version) {
          Enter([this, version] { TakeUpAirports(version); });
      }) {}

void CatalogueWatch::Poll() {
    if (state_.Busy || gate_.Waiting() || !state_.form.Visible || !state_.form.FoldersKnown) return;
    catalogue_.Poll(state_.folders.DataPath + CatalogueName, reload_.Loaded());
    airport_file_.Poll(state_.folders.DataPath + AirportsName, airports_.Loaded());
}

void CatalogueWatch::Enter(const HandlerGate::Handler& handler) {
    gate_.Enter([this, handler] {
        if (!state_.Busy) handler();
    });
}

void CatalogueWatch::TakeUpAirports(const TextVersion& version) {
    airports_.TakeUp(version);
    positions_.Forget();
    state_.range.AirportSearchStart = 1;
}

} // namespace quillon
