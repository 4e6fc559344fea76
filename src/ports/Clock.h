#pragma once

#include <chrono>
#include <cstdint>

namespace quillon {

/// Local wall-clock time; the user may set the clock while the program runs.
using TimePoint = std::chrono::time_point<std::chrono::system_clock, std::chrono::milliseconds>;

/// Time, and the two ways of letting it pass.
class Clock {
  public:
    virtual ~Clock() = default;

    /// Called on any thread, like Uptime and Sleep.
    virtual TimePoint Now() = 0;

    /// The time since some start, which goes on evenly even if the clock is set.
    virtual std::chrono::milliseconds Uptime() = 0;

    /// Blocks without serving window events.
    virtual void Sleep(std::chrono::milliseconds time) = 0;

    /// Serves window events for about that long; other handlers of the program may run meanwhile. Otherwise
    /// only modal prompts, dialogs and printing let events in. Returns false once the program is ending: the
    /// caller must then stop waiting.
    virtual bool ServeEvents(std::chrono::milliseconds time) = 0;
};

/// Waits that many seconds while serving window events; ends early when the program is ending.
void Pause(Clock& clock, std::int16_t seconds);

/// Waits until DateDiffSeconds from the call to now is `seconds`, which may take up to a second less, serving
/// window events; ends early when the program is ending.
void WaiT(Clock& clock, std::int16_t seconds);

/// How often the seconds of a clock change between two times.
std::int64_t DateDiffSeconds(TimePoint from, TimePoint to);

} // namespace quillon
