#pragma once

#include "simlink/FsuipcClient.h"
#include "simlink/SimInquiry.h"
#include "state/PlaybackState.h"

#include <functional>
#include <string>

namespace quillon {

/// Tunes the simulator's followed radio.
class RadioTuning {
  public:
    RadioTuning(RadioState& radio, FsuipcClient& link, SimInquiry& inquiry)
        : radio_(radio), link_(link), inquiry_(inquiry) {}

    /// Writes the frequency to the followed radio, also in Hz if it was read so and is a channel of 8.33 kHz;
    /// the last call of its handler, before `then`. No effect without a link or a chosen radio. Raises error 13
    /// if the text is not a frequency.
    void Write_FSUIPC(const std::string& TuneFrequencyText, std::function<void()> then);

  private:
    void LL2(std::uint32_t offset, std::uint32_t word, std::uint32_t& result);
    std::int32_t HertzFor(const std::string& frequency) const;
    void QueueHertz(std::uint32_t offset, std::int32_t hertz, std::uint32_t& result);

    RadioState& radio_;
    FsuipcClient& link_;
    SimInquiry& inquiry_;
};

} // namespace quillon
