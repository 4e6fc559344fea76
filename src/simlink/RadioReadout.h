#pragma once

#include "radio/RadioWord.h"
#include "simlink/FsuipcClient.h"

#include <array>
#include <optional>
#include <span>
#include <string>

namespace quillon {

/// One of the four COM radios, by the number that `SelectedComm` holds.
struct CommRadio {
    std::uint32_t Offset;      ///< of its BCD word in the simulator's memory
    std::uint32_t HertzOffset; ///< of its frequency in Hz there, if the module is of version 4 or newer
    const char* Caption;       ///< " Comm 1 Standby "
};

/// The radio numbered 1 to 4, null for any other number.
const CommRadio* FindCommRadio(std::int16_t selected_comm);

/// The same by `Offset`.
const CommRadio* FindCommRadioAt(std::uint32_t offset);

/// Degrees as text in fixed notation, always with a decimal point: "45.0", "0.00002", "-33.9461".
std::string DegreesText(double degrees);

/// An aircraft's position in degrees, north and east positive. What could not be read is left out.
struct PositionReading {
    std::optional<double> latitude;
    std::optional<double> longitude;
};

/// What one tick needs of the simulator, as it came over the link.
class SimReading {
  public:
    /// The pause indicator, 1 while the simulator is paused. Raises error 6 for a value beyond 16 bits.
    std::optional<std::int16_t> PauseState() const;

    /// The radio that was asked for.
    std::optional<RadioReading> Radio() const;

    PositionReading Position() const;

  private:
    friend class RadioReadout;

    /// A coordinate's whole units and the fraction below them.
    struct FixedPoint {
        std::int32_t high = 0;
        std::int32_t low = 0;

        double Value() const;
    };

    /// A radio's bytes as they came; zero Hz if it was not asked for.
    struct RadioBytes {
        std::array<std::uint8_t, 4> word{};
        std::int32_t hertz = 0;

        RadioReading Value() const;
    };

    bool answered_ = false;
    bool has_radio_ = false;
    std::array<std::uint8_t, 2> pause_{};
    RadioBytes radio_;
    FixedPoint latitude_;
    FixedPoint longitude_;
};

/// Reads radios, the pause indicator and the position. A read that fails gives nothing.
class RadioReadout {
  public:
    explicit RadioReadout(FsuipcClient& link) : link_(link) {}

    /// Asks for everything in one round trip: if that fails, none of it is known. A radio offset of 0 leaves
    /// the radio out. Sets `result` as the link does.
    SimReading Read(std::uint32_t radio_offset, std::uint32_t& result);

    /// The radio at that offset.
    std::optional<RadioReading> ReadRadio(std::uint32_t offset, std::uint32_t& result);

  private:
    bool QueueRadio(std::uint32_t offset, SimReading::RadioBytes& radio, std::uint32_t& result);

    FsuipcClient& link_;
};

} // namespace quillon
