#pragma once

#include "geo/Utilities.h"
#include "ports/TextFile.h"
#include "runtime/ErrorTrap.h"
#include "state/AirportList.h"

#include <string>
#include <string_view>

namespace quillon {

inline constexpr const char* AirportsName = "Airport.dat";

/// The airport file of the data folder: one airport per line, such as
/// "KJFK,N40*38.00,W073*46.00".
class Airports {
  public:
    Airports(AirportList& list, AnsiCodePage& page, ErrorTrap& trap) : list_(list), page_(page), trap_(trap) {}

    /// Fills the list with the lines of the file in `folder`. A file that cannot be read is reported and leaves
    /// the list empty.
    void LoadAirports(const std::string& folder);

    /// Fills the list with the lines of that version of the file.
    void TakeUp(const TextVersion& version);

    /// Of the file that is in the list.
    const std::optional<FileStamp>& Loaded() const { return loaded_; }

  private:
    AirportList& list_;
    AnsiCodePage& page_;
    ErrorTrap& trap_;
    std::optional<FileStamp> loaded_;
};

struct AirportPosition {
    DmsRecord latitude;
    DmsRecord longitude;
};

/// Position in an airport's line. An "S" anywhere after the ICAO code makes the latitude southern. The whole
/// degrees give the sign, so an angle of 0 degrees and some minutes counts as 0. Raises error 5 if a separator
/// is missing or misplaced, 13 if southern or western degrees are not a number.
AirportPosition ParseAirport(std::string_view line);

} // namespace quillon
