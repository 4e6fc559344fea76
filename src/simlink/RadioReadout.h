#pragma once

#include "simlink/FsuipcClient.h"
#include "state/ProgramState.h"

#include <array>
#include <optional>
#include <string>

namespace quillon {

/// One of the four COM radios, by the number that `SelectedComm` holds.
struct CommRadio {
    std::uint32_t Offset; ///< of its BCD word in the simulator's memory
    const char* Caption;  ///< " Comm 1 Standby "
};

/// The radio numbered 1 to 4, null for any other number.
const CommRadio* FindCommRadio(std::int16_t selected_comm);

/// The frequency text of a radio's two BCD bytes: `high` holds the tens and units of MHz above 100, `low` the
/// decimals. 0x18 and 0x05 give "118.05": a lost leading zero is put back, as the channel raster tells which
/// end it stood at. `zero_inserted` says whether it stood in front of the last digit.
std::string DecodeFrequency(std::uint8_t high, std::uint8_t low, bool& zero_inserted);

/// Degrees as text in fixed notation, always with a decimal point: "45.0", "0.00002", "-33.9461".
std::string DegreesText(double degrees);

/// Reads the followed radio, the pause indicator and the position. A read that fails changes nothing.
class RadioReadout {
  public:
    RadioReadout(ProgramState& state, FsuipcClient& link) : radio_(state.radio), link_(link) {}

    enum class Frequency { Unread, Read, ZeroInserted };

    /// Points `CommOffset` at the followed radio and reads it into `MasterFrequency`. Unread, too, while no
    /// radio has ever been chosen.
    Frequency ReadMasterFrequency();

    /// The simulator's pause indicator, 1 while it is paused. Raises error 6 for a value beyond 16 bits.
    std::optional<std::int16_t> ReadPauseState();

    /// Fills the aircraft position and its texts.
    void ReadAircraftPosition();

  private:
    template <std::size_t Size>
    bool Read(std::uint32_t offset, std::array<std::uint8_t, Size>& bytes);
    std::optional<double> ReadFixedPoint(std::uint32_t high_offset, std::uint32_t low_offset);

    RadioState& radio_;
    FsuipcClient& link_;
};

} // namespace quillon
