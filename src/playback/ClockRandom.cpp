#include "playback/ClockRandom.h"

#include <cstdint>

namespace quillon {

double ClockRandom::Next() {
    // A tick draws twice within one millisecond. Seeded by the time alone, both numbers would be the same, and
    // each length of gap would always bring the same place in the bag. So a number of the old sequence goes
    // into the seed of the new one.
    const auto now = static_cast<std::uint64_t>(clock_.Now().time_since_epoch().count());
    generator_.seed(static_cast<std::uint32_t>(now ^ generator_()));
    return static_cast<double>(generator_()) / 4294967296.0;
}

} // namespace quillon
