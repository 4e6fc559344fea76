#pragma once

#include "simlink/FsuipcClient.h"
#include "state/PlaybackState.h"

#include <string>

namespace quillon {

/// A frequency text "1##.##" as the BCD word of a radio: "118.30" is 0x1830. Only the text's characters 2, 3
/// and last two count; raises error 13 when they are no digits.
std::uint32_t BcdOfFrequency(const std::string& frequency);

/// Tunes the simulator's followed radio.
class RadioTuning {
  public:
    RadioTuning(RadioState& radio, FsuipcClient& link) : radio_(radio), link_(link) {}

    /// Writes the frequency to the followed radio. Without a link, or while no radio has ever been chosen,
    /// nothing is written and nothing is said. Raises error 13 when the text is no frequency.
    void Write_FSUIPC(const std::string& TuneFrequencyText);

  private:
    void LL2(const std::string& TuneFrequencyText);

    RadioState& radio_;
    FsuipcClient& link_;
};

} // namespace quillon
