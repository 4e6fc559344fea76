#pragma once

#include "simlink/FsuipcClient.h"

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

/// A radio's frequency.
struct RadioReading {
    std::string frequency; ///< "###.##", MHz
    bool zero_inserted;    ///< a lost zero was put back in front of the last digit
};

/// The frequency of a radio's two BCD bytes: `high` holds the tens and units of MHz above 100, `low` the
/// decimals. 0x18 and 0x05 give "118.05": a lost leading zero is put back, and the channel raster tells at
/// which end.
RadioReading DecodeFrequency(std::uint8_t high, std::uint8_t low);

/// Degrees as text in fixed notation, always with a decimal point: "45.0", "0.00002", "-33.9461".
std::string DegreesText(double degrees);

/// An aircraft's position in degrees, north and east positive. What could not be read is left out.
struct PositionReading {
    std::optional<double> latitude;
    std::optional<double> longitude;
};

/// Reads radios, the pause indicator and the position. A read that fails gives nothing.
class RadioReadout {
  public:
    /// `result` receives the LinkResult of each call.
    RadioReadout(FsuipcClient& link, std::uint32_t& result) : link_(link), result_(result) {}

    /// The radio at that offset; nothing for offset 0.
    std::optional<RadioReading> ReadRadio(std::uint32_t offset);

    /// The simulator's pause indicator, 1 while it is paused. Raises error 6 for a value beyond 16 bits.
    std::optional<std::int16_t> ReadPauseState();

    PositionReading ReadPosition();

  private:
    template <std::size_t Size>
    bool Read(std::uint32_t offset, std::array<std::uint8_t, Size>& bytes);
    std::optional<double> ReadFixedPoint(std::uint32_t high_offset, std::uint32_t low_offset, double unit);

    FsuipcClient& link_;
    std::uint32_t& result_;
};

} // namespace quillon
