#pragma once

#include "ports/Clock.h"

#include <random>

namespace quillon {

/// Random numbers from a generator reseeded from the clock before each.
class ClockRandom {
  public:
    explicit ClockRandom(Clock& clock) : clock_(clock) {}

    /// Uniform in [0, 1).
    double Next();

  private:
    Clock& clock_;
    std::mt19937 generator_;
};

} // namespace quillon
