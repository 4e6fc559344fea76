#include "playback/ClockRandom.h"

#include <cstdint>

namespace quillon {

double ClockRandom::Next() {
    // A tick draws twice within a millisecond. Seeded from the time alone, both numbers would be equal and tie
    // the gap to the recording, so the seed also takes a number from the old sequence.
    const auto now = static_cast<std::uint64_t>(clock_.Now().time_since_epoch().count());
    generator_.seed(static_cast<std::uint32_t>(now ^ generator_()));
    return static_cast<double>(generator_()) / 4294967296.0;
}

} // namespace quillon
