#include "ports/Clock.h"

namespace quillon {

namespace {

constexpr std::chrono::milliseconds Slice{20};

/// Serves events until `done` says so. The start also moves back with a clock that is set back, which would
/// otherwise stretch the wait by as much.
template <typename Done>
void ServeUntil(Clock& clock, Done done) {
    TimePoint start = clock.Now();
    for (TimePoint now = start; !done(start, now); now = clock.Now()) {
        if (now < start) start = now;
        if (!clock.ServeEvents(Slice)) return;
    }
}

} // namespace

void Pause(Clock& clock, std::int16_t seconds) {
    ServeUntil(clock,
               [&](TimePoint start, TimePoint now) { return now - start >= std::chrono::seconds(seconds); });
}

void WaiT(Clock& clock, std::int16_t seconds) {
    ServeUntil(clock, [&](TimePoint start, TimePoint now) { return DateDiffSeconds(start, now) >= seconds; });
}

std::int64_t DateDiffSeconds(TimePoint from, TimePoint to) {
    using std::chrono::floor;
    using std::chrono::seconds;
    return (floor<seconds>(to) - floor<seconds>(from)).count();
}

} // namespace quillon
