#pragma once

#include "geo/Utilities.h"
#include "ports/AnsiCodePage.h"
#include "runtime/ErrorTrap.h"
#include "state/ProgramState.h"

#include <string_view>

namespace quillon {

inline constexpr const char* AirportsName = "Airport.dat";

/// The airport file of the data folder: one airport per line, such as
/// "KJFK,N40*38.00,W073*46.00".
class Airports {
  public:
    Airports(ProgramState& state, AnsiCodePage& page, ErrorTrap& trap)
        : state_(state), page_(page), trap_(trap) {}

    /// Fills the list of airports with the file's lines. A file that cannot be read is reported and leaves it
    /// empty.
    void LoadAirports();

  private:
    ProgramState& state_;
    AnsiCodePage& page_;
    ErrorTrap& trap_;
};

struct AirportPosition {
    DmsRecord latitude;
    DmsRecord longitude;
};

/// Position in an airport's line. An "S" anywhere behind the ICAO code makes the latitude southern. The sign is
/// that of the whole degrees, so that with 0 degrees the angle is 0. Raises error 5 when a separator is missing
/// or out of place, 13 when southern or western degrees are no number.
AirportPosition ParseAirport(std::string_view line);

} // namespace quillon
