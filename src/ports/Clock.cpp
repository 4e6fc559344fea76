#include "ports/Clock.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr std::chrono::milliseconds Slice{20};

/// Serves events until `end_of(start)`. If the clock is set back, so is the start: the wait would get longer
/// otherwise.
template <typename EndOf>
void ServeUntil(Clock& clock, EndOf end_of) {
    TimePoint start = clock.Now();
    for (TimePoint now = start; now < end_of(start); now = clock.Now()) {
        if (now < start) start = now;
        if (!clock.ServeEvents(std::min(Slice, end_of(start) - now))) return;
    }
}

} // namespace

void Pause(Clock& clock, std::int16_t seconds) {
    ServeUntil(clock, [&](TimePoint start) { return start + std::chrono::seconds(seconds); });
}

void WaiT(Clock& clock, std::int16_t seconds) {
    ServeUntil(clock, [&](TimePoint start) -> TimePoint {
        return std::chrono::floor<std::chrono::seconds>(start) + std::chrono::seconds(seconds);
    });
}

std::int64_t DateDiffSeconds(TimePoint from, TimePoint to) {
    using std::chrono::floor;
    using std::chrono::seconds;
    return (floor<seconds>(to) - floor<seconds>(from)).count();
}

} // namespace quillon
