#include "player/SmoothSound.h"

#include <algorithm>
#include <cmath>

namespace quillon {

namespace {

void Approach(double& value, double wanted, double step) {
    value += std::clamp(wanted - value, -step, step);
}

} // namespace

SmoothSound::SmoothSound(const PcmFormat& format) : format_(format), pause_step_(StepOf(Ramp)) {}

/// How much a gain changes with each sample.
double SmoothSound::StepOf(std::chrono::milliseconds ramp) const {
    return ramp.count() == 0 ? 1 : 1000.0 / (static_cast<double>(ramp.count()) * format_.sample_rate);
}

void SmoothSound::Push(const Samples& samples) {
    samples_.erase(samples_.begin(), samples_.begin() + static_cast<std::ptrdiff_t>(taken_));
    taken_ = 0;
    samples_.insert(samples_.end(), samples.begin(), samples.end());
}

void SmoothSound::SetVolume(int volume) {
    wanted_volume_ = volume / 100.0;
    if (!has_begun_) volume_ = wanted_volume_;
}

void SmoothSound::SetPaused(bool paused, std::chrono::milliseconds ramp) {
    paused_ = paused;
    pause_step_ = StepOf(ramp);
    if (ramp.count() == 0) pause_gain_ = paused ? 0 : 1;
}

void SmoothSound::Take(std::span<std::int16_t> room) {
    while (!room.empty() && !IsSilent()) {
        const double gain = NextGain();
        for (std::int16_t& sample : room.first(format_.channels))
            sample = static_cast<std::int16_t>(std::lround(samples_[taken_++] * gain));
        room = room.subspan(format_.channels);
        has_begun_ = true;
    }
    if (!room.empty()) edge_gain_ = 0;
    std::fill(room.begin(), room.end(), std::int16_t{0});
}

/// What is left decides the gain near the end, so that sound that runs out ends in silence.
double SmoothSound::NextGain() {
    const double step = StepOf(Ramp);
    const std::size_t frames_left = (samples_.size() - taken_) / format_.channels - 1;
    Approach(edge_gain_, std::min(static_cast<double>(frames_left) * step, 1.0), step);
    Approach(volume_, wanted_volume_, step);
    Approach(pause_gain_, paused_ ? 0 : 1, pause_step_);
    return edge_gain_ * volume_ * pause_gain_;
}

} // namespace quillon
