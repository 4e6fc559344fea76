#pragma once

#include "playback/ClockRandom.h"
#include "playback/ScreenTexts.h"
#include "state/PlaybackState.h"

#include <optional>
#include <string>

namespace quillon {

/// Length of a gap in seconds, from `min_seconds` to `max_seconds`, picked by `r` in [0, 1). If the bounds are
/// swapped, it lies between `max_seconds` + 1 and `min_seconds`. Raises error 6 if the number of possible
/// lengths does not fit 16 bits.
std::int16_t GapSeconds(std::int16_t min_seconds, std::int16_t max_seconds, double r);

/// When the next recording is due, and which one it is.
class ChatterSchedule {
  public:
    ChatterSchedule(ChatterState& chatter, ScreenTexts& texts, Clock& clock, std::string& startup_step);

    /// The gap begins now.
    void BeginGap();

    /// Refreshes `ChatterElapsed` and the label that shows it.
    void MeasureElapsed();

    /// Whether the gap is still running; if so, shows the seconds left.
    bool CountDown();

    /// Draws the next gap and then, with `step` as the step text, the recording to play now. If all have been
    /// played, refills the bag for the next tick and returns nothing.
    std::optional<std::string> Draw(const std::string& step);

  private:
    ChatterState& chatter_;
    ScreenTexts& texts_;
    Clock& clock_;
    std::string& startup_step_;
    ClockRandom random_;
};

} // namespace quillon
