#pragma once

#include "simlink/FsuipcClient.h"
#include "simlink/SimInquiry.h"
#include "state/PlaybackState.h"

#include <string>

namespace quillon {

/// A frequency text "1##.##" as a radio's BCD word: "118.30" is 0x1830. Uses only characters 2, 3 and the last
/// two; raises error 13 if they are not digits.
std::uint32_t BcdOfFrequency(const std::string& frequency);

/// Tunes the simulator's followed radio.
class RadioTuning {
  public:
    RadioTuning(RadioState& radio, FsuipcClient& link, SimInquiry& inquiry)
        : radio_(radio), link_(link), inquiry_(inquiry) {}

    /// Writes the frequency to the followed radio; the last call of its handler. No effect without a link or a
    /// chosen radio. Raises error 13 if the text is not a frequency.
    void Write_FSUIPC(const std::string& TuneFrequencyText);

  private:
    void LL2(std::uint32_t offset, std::uint32_t word, std::uint32_t& result);

    RadioState& radio_;
    FsuipcClient& link_;
    SimInquiry& inquiry_;
};

} // namespace quillon
