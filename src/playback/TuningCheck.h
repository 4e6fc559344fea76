#pragma once

#include "playback/Notices.h"
#include "ports/Clock.h"
#include "state/PlaybackState.h"

#include <optional>
#include <string>

namespace quillon {

/// Tells the user when the radio did not take the frequency to which it was tuned from the list, as a radio
/// without 8.33 kHz does.
class TuningCheck {
  public:
    TuningCheck(const RadioState& radio, Notices& notices, Clock& clock)
        : radio_(radio), notices_(notices), clock_(clock) {}

    /// The followed radio has just been tuned to the frequency.
    void Begin(const std::string& frequency);

    /// The followed radio has just been read. Two seconds after Begin, compares.
    void Compare();

  private:
    struct Tuned {
        std::string frequency;
        std::uint32_t offset; ///< of the radio
        TimePoint since;
    };

    const RadioState& radio_;
    Notices& notices_;
    Clock& clock_;
    std::optional<Tuned> tuned_;
};

} // namespace quillon
