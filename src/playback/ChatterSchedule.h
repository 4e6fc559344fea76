#pragma once

#include "playback/ClockRandom.h"
#include "playback/ScreenTexts.h"
#include "state/PlaybackState.h"

#include <optional>
#include <string>

namespace quillon {

/// Length of a gap in seconds, between the bounds, both included: `r` in [0, 1) says where. With the bounds the
/// wrong way round it lies between `max_seconds` + 1 and `min_seconds`. Raises error 6 when the number of
/// lengths to choose from does not fit 16 bits.
std::int16_t GapSeconds(std::int16_t min_seconds, std::int16_t max_seconds, double r);

/// When the next recording is due, and which one it is.
class ChatterSchedule {
  public:
    ChatterSchedule(ChatterState& chatter, ScreenTexts& texts, Clock& clock, std::string& startup_step);

    /// The gap begins now.
    void BeginGap();

    /// Refreshes `ChatterElapsed` and the label that shows it.
    void MeasureElapsed();

    /// Whether the gap is still running. If so, shows how long it will.
    bool CountDown();

    /// Draws the next gap and then, under the step text given, the recording to play now. Nothing when all have
    /// been played: they are put back, to be drawn from at the next tick.
    std::optional<std::string> Draw(const std::string& step);

  private:
    ChatterState& chatter_;
    ScreenTexts& texts_;
    Clock& clock_;
    std::string& startup_step_;
    ClockRandom random_;
};

} // namespace quillon
