#include "player/Loudspeaker.h"

#include <utility>

namespace quillon {

using namespace std::chrono_literals;

namespace {

/// A device that has kept pace for so long plays well. Counted afresh each time, because no two clocks agree.
constexpr auto Probation = 1s;

/// More than any device takes ahead of its playing.
constexpr auto MostAhead = 1s;

} // namespace

bool Loudspeaker::Open(const PcmFormat& format) {
    format_ = format;
    return OpenAgain();
}

bool Loudspeaker::OpenAgain() {
    output_.reset(); // first, for some devices play for one at a time
    output_ = system_.OpenOutput(format_);
    last_write_ = since_ = system_.Now();
    written_ = {};
    return output_ != nullptr;
}

void Loudspeaker::Hold(bool held) {
    if (!output_) return;
    output_->Hold(held);
    last_write_ = system_.Now();
}

bool Loudspeaker::Write(const Samples& samples) {
    while (PlaysTooFast() || !output_->Write(samples))
        if (!Move()) return false;
    Count(samples);
    return true;
}

bool Loudspeaker::Watch() {
    return system_.Now() - last_write_ < LongestStandstill || Move();
}

/// Once: when the next device does not play either, there is none.
bool Loudspeaker::Move() {
    return !std::exchange(has_moved_, true) && OpenAgain();
}

/// A device that is gone may return what it is given at once.
bool Loudspeaker::PlaysTooFast() const {
    return written_ > system_.Now() - since_ + MostAhead;
}

void Loudspeaker::Count(const Samples& samples) {
    last_write_ = system_.Now();
    written_ += Duration(format_, samples.size());
    if (last_write_ - since_ < Probation) return;
    has_moved_ = false;
    since_ = last_write_;
    written_ = {};
}

} // namespace quillon
