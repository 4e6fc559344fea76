#pragma once

#include "player/Pcm.h"

namespace quillon {

/// Sound on its way to a device, without clicks: it begins, ends, runs out, pauses, resumes and changes its
/// volume along ramps.
class SmoothSound {
  public:
    /// Of everything but a fade.
    static constexpr std::chrono::milliseconds Ramp{10};

    explicit SmoothSound(const PcmFormat& format);

    void Push(const Samples& samples);

    /// How long the sound lasts that has not been taken yet.
    std::chrono::microseconds Length() const { return Duration(format_, samples_.size() - taken_); }

    /// 0 to 100.
    void SetVolume(int volume);

    /// Pauses at the end of a ramp, or resumes where it paused. With a ramp of 0 at once.
    void SetPaused(bool paused, std::chrono::milliseconds ramp = Ramp);

    bool IsPaused() const { return paused_; }

    /// Whether the next samples are silence: it has paused, or run out.
    bool IsSilent() const { return (paused_ && pause_gain_ <= 0) || taken_ == samples_.size(); }

    /// Fills the room, a whole number of samples of all channels, with sound and then with silence.
    void Take(std::span<std::int16_t> room);

  private:
    double StepOf(std::chrono::milliseconds ramp) const;
    double NextGain();

    PcmFormat format_;
    Samples samples_;
    std::size_t taken_ = 0;
    double volume_ = 1; // each of these from 0 to 1
    double wanted_volume_ = 1;
    double edge_gain_ = 0; // for the beginning and the end
    double pause_gain_ = 1;
    double pause_step_;
    bool has_begun_ = false;
    bool paused_ = false;
};

} // namespace quillon
