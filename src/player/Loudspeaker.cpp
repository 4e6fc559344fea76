#include "player/Loudspeaker.h"

#include <utility>

namespace quillon {

using namespace std::chrono_literals;

namespace {

/// A device that keeps pace for this long is good. Counting then restarts, because its clock and ours drift
/// apart.
constexpr auto TrialPeriod = 1s;

/// More than any device buffers.
constexpr auto LargestBuffer = 1s;

} // namespace

bool Loudspeaker::Open(const PcmFormat& format) {
    format_ = format;
    return Reopen();
}

bool Loudspeaker::Reopen() {
    output_.reset(); // first, because some devices accept only one user
    choice_ = system_.OutputChoice();
    output_ = system_.OpenOutput(format_);
    if (output_) Prepare();
    last_write_ = count_start_ = system_.Now();
    written_ = {};
    return output_ != nullptr;
}

bool Loudspeaker::FollowChoice() {
    return !output_ || choice_ == system_.OutputChoice() || Reopen();
}

void Loudspeaker::Prepare() {
    output_->SetVolume(volume_);
    const auto ramp = std::exchange(first_ramp_, 0ms);
    if (ramp == 0ms) return;
    output_->SetPaused(true, 0ms);
    output_->SetPaused(false, ramp);
}

void Loudspeaker::SetPaused(bool paused, std::chrono::milliseconds ramp) {
    if (!output_) first_ramp_ = ramp;
    if (!output_) return;
    output_->SetPaused(paused, ramp);
    last_write_ = system_.Now();
}

void Loudspeaker::SetVolume(int volume) {
    volume_ = volume;
    if (output_) output_->SetVolume(volume);
}

bool Loudspeaker::Write(const Samples& samples) {
    while (PlaysTooFast() || !output_->Write(samples))
        if (!SwitchDevice()) return false;
    Count(samples);
    return true;
}

bool Loudspeaker::CheckProgress() {
    return system_.Now() - last_write_ < StandstillTimeout || SwitchDevice();
}

/// Only once: if the next device does not play either, none does.
bool Loudspeaker::SwitchDevice() {
    return !std::exchange(has_switched_, true) && Reopen();
}

/// A device that is gone may return blocks at once, unplayed.
bool Loudspeaker::PlaysTooFast() const {
    return written_ > system_.Now() - count_start_ + LargestBuffer;
}

void Loudspeaker::Count(const Samples& samples) {
    last_write_ = system_.Now();
    written_ += Duration(format_, samples.size());
    if (last_write_ - count_start_ < TrialPeriod) return;
    has_switched_ = false;
    count_start_ = last_write_;
    written_ = {};
}

} // namespace quillon
