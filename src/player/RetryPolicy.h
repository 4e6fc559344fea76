#pragma once

#include "player/Ending.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <random>

namespace quillon {

/// When to ask again for a stream that has ended. Waits get longer while a server stays away, and differ by
/// chance, so that its listeners do not all come back at the same moment.
class RetryPolicy {
  public:
    /// Up to this fraction a wait is longer or shorter than its round value.
    static constexpr double Jitter = 0.2;

    /// So much sound in one go makes a server good again.
    static constexpr std::chrono::seconds GoodSound{30};

    /// After so many answers in a row that are no sound, the address is given up.
    static constexpr int MostOddities = 3;

    explicit RetryPolicy(std::uint32_t seed) : random_(seed) {}

    /// How long to wait after that end, when `heard` was to be heard before it. Nothing: give the address up.
    std::optional<std::chrono::milliseconds> WaitAfter(Ending ending, std::chrono::milliseconds heard);

  private:
    std::minstd_rand random_;
    std::size_t step_ = 0;
    int oddities_ = 0;
};

} // namespace quillon
