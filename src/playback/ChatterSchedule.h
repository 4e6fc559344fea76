#pragma once

#include "playback/ClockRandom.h"
#include "playback/ScreenTexts.h"
#include "playback/ShuffleBag.h"
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
    ChatterSchedule(ChatterState& chatter, ShuffleBag& bag, ScreenTexts& texts, Clock& clock,
                    std::string& startup_step);

    /// The gap begins now.
    void BeginGap();

    /// Whether the folder has been listed, so that recordings can be drawn. A refill that finds nothing begins
    /// a new gap: what cannot be listed is not listed again every second.
    bool FolderIsKnown();

    /// Refreshes `ChatterElapsed` and the label that shows it.
    void MeasureElapsed();

    /// Whether the gap is still running; if so, shows the seconds left, or why there is nothing to wait for.
    bool CountDown();

    /// Draws the next gap and then, with `step` as the step text, the recording to play now. If all have been
    /// played, has the bag refilled and returns nothing.
    std::optional<std::string> Draw(const std::string& step);

  private:
    void ShowSilence();

    ChatterState& chatter_;
    ShuffleBag& bag_;
    ScreenTexts& texts_;
    Clock& clock_;
    std::string& startup_step_;
    ClockRandom random_;
};

} // namespace quillon
