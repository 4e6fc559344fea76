#pragma once

#include <algorithm>
#include <chrono>

namespace quillon {

/// How far ahead a wave device is given sound at least, which is how long it is still heard after a pause.
/// Doubles when the device has run dry or nearly so, and halves after a calm time. That time doubles whenever
/// the device has really run dry.
class Headroom {
  public:
    static constexpr std::chrono::milliseconds Least{10};
    static constexpr std::chrono::milliseconds Most{160};
    static constexpr std::chrono::minutes ShortestCalm{1};
    static constexpr std::chrono::hours LongestCalm{1};

    using Time = std::chrono::microseconds; // of a clock that never goes back

    Time Length() const { return length_; }

    void RanDry(Time now) {
        calm_ = std::min<Time>(calm_ * 2, LongestCalm);
        Double(now);
    }

    /// The device has that much left when it is given more.
    void FoundLeft(Time left, Time now) {
        if (left < length_ / 4) Double(now);
    }

    void PlaysOn(Time now) {
        if (length_ == Least || now - changed_ < calm_) return;
        length_ = std::max<Time>(length_ / 2, Least);
        changed_ = now;
    }

  private:
    void Double(Time now) {
        length_ = std::min<Time>(length_ * 2, Most);
        changed_ = now;
    }

    Time length_ = Least;
    Time calm_ = ShortestCalm;
    Time changed_{0};
};

} // namespace quillon
