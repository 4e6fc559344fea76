#pragma once

#include "app/FileWatch.h"
#include "app/HandlerGate.h"
#include "app/QuietReload.h"
#include "geo/AirportPositions.h"
#include "geo/Airports.h"
#include "state/ProgramState.h"

namespace quillon {

/// Takes up what other programs write into the catalogue and the airport file while the program runs. It waits
/// for whatever handler, dialog or editor is under way.
class CatalogueWatch {
  public:
    CatalogueWatch(ProgramState& state, HandlerGate& gate, Background& disk, AnsiCodePage& page, Clock& clock,
                   QuietReload& reload, Airports& airports, AirportPositions& positions);

    /// To be called several times a second.
    void Poll();

  private:
    void Enter(const HandlerGate::Handler& handler);
    void TakeUpAirports(const TextVersion& version);

    ProgramState& state_;
    HandlerGate& gate_;
    QuietReload& reload_;
    Airports& airports_;
    AirportPositions& positions_;
    FileWatch catalogue_;
    FileWatch airport_file_;
};

} // namespace quillon
