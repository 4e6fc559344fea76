#pragma once

#include <chrono>
#include <cstdint>

namespace quillon {

/// Local wall-clock time; may be set by the user while the program runs.
using TimePoint = std::chrono::time_point<std::chrono::system_clock, std::chrono::milliseconds>;

/// Time, and the two ways of letting it pass.
class Clock {
  public:
    virtual ~Clock() = default;

    virtual TimePoint Now() = 0;

    /// Blocks. No window event gets in.
    virtual void Sleep(std::chrono::milliseconds time) = 0;

    /// Serves window events (other handlers of the program may run inside) for about that long. Besides this
    /// only what is modal lets events in: prompts, dialogs and printing. Returns false once the program is
    /// ending: the caller then stops waiting.
    virtual bool ServeEvents(std::chrono::milliseconds time) = 0;
};

/// Waits that many seconds while serving window events; ends early when the program is ending.
void Pause(Clock& clock, std::int16_t seconds);

/// Waits until the whole-second difference between the call and now reaches `seconds` (so up to a second less
/// than that passes), serving window events; ends early when the program is ending.
void WaiT(Clock& clock, std::int16_t seconds);

/// Difference in whole seconds as clocks show it: the seconds' boundaries that lie between two times.
std::int64_t DateDiffSeconds(TimePoint from, TimePoint to);

} // namespace quillon
