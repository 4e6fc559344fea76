#pragma once

#include "geo/Mapstuff.h"
#include "geo/Utilities.h"
#include "runtime/ErrorTrap.h"
#include "state/ProgramState.h"

#include <string>

namespace quillon {

/// Position text such as "-33.9461" (degrees) as degrees, minutes and seconds: "-33.56.48". Cuts `value` to its
/// first 7 characters. The seconds come from the minutes rounded to one decimal, and so are a multiple of 6.
/// `startup_step` follows what it does. Raises error 5 for a text without a ".".
std::string Convert2DMS(std::string& value, std::string& startup_step);

/// Whether the current feed's airport is within the user's reception range of the aircraft.
class ReceptionRange {
  public:
    ReceptionRange(ProgramState& state, ErrorTrap& trap) : state_(state), trap_(trap) {}

    /// Measures the distance to the current feed's airport; sets the distance label and `InRange`. Without a
    /// feed nothing changes; without a known airport or position only the label does; an error, or points
    /// between which there is no distance, leaves both. Range 0 is always in range.
    void CalcDistance();

  private:
    void Measure();
    bool FindFeedAirport();
    void ShowNoDistance();
    GeodesicProblem ProblemTo(const DmsRecord& airport_latitude, const DmsRecord& airport_longitude);
    void ShowDistance(double metres);

    ProgramState& state_;
    ErrorTrap& trap_;
};

} // namespace quillon
