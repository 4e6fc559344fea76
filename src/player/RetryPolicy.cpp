#include "player/RetryPolicy.h"

#include <algorithm>
#include <iterator>

namespace quillon {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

namespace {

constexpr milliseconds Waits[] = {1s, 2s, 4s, 8s, 15s, 30s};

/// A device that is plugged in is to be heard soon, and asking for it costs the server little.
constexpr milliseconds WaitForDevice = 5s;

} // namespace

std::optional<milliseconds> RetryPolicy::WaitAfter(Ending ending, milliseconds heard) {
    if (ending == Ending::NoDevice) return WaitForDevice;
    if (heard >= GoodSound) step_ = 0;
    if (heard > 0ms || ending != Ending::NotAudio) oddities_ = 0;
    if (ending == Ending::NotAudio && ++oddities_ == MostOddities) return {};
    if (ending == Ending::Refused) return {};
    const auto wait = static_cast<double>(Waits[step_].count());
    step_ = std::min(step_ + 1, std::size(Waits) - 1);
    std::uniform_real_distribution<double> factor(1 - Jitter, 1 + Jitter);
    return milliseconds(static_cast<std::int64_t>(wait * factor(random_)));
}

} // namespace quillon
