#pragma once

#include <algorithm>
#include <chrono>

namespace quillon {

/// How far ahead a wave device is given sound at least, which is how long it is still heard after a pause.
/// Doubles when the device has run dry, and halves after a calm time, which doubles then, too.
class Headroom {
  public:
    static constexpr std::chrono::milliseconds Least{10};
    static constexpr std::chrono::milliseconds Most{160};
    static constexpr std::chrono::minutes ShortestCalm{2};
    static constexpr std::chrono::hours LongestCalm{1};

    using Time = std::chrono::microseconds; // of a clock that never goes back

    Time Length() const { return length_; }

    void RanDry(Time now) {
        length_ = std::min<Time>(length_ * 2, Most);
        calm_ = std::min<Time>(calm_ * 2, LongestCalm);
        changed_ = now;
    }

    void PlaysOn(Time now) {
        if (length_ == Least || now - changed_ < calm_) return;
        length_ = std::max<Time>(length_ / 2, Least);
        changed_ = now;
    }

  private:
    Time length_ = Least;
    Time calm_ = ShortestCalm / 2; // the first time doubles it
    Time changed_{0};
};

} // namespace quillon
