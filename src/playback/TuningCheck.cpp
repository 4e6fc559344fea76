#include "playback/TuningCheck.h"

#include "radio/Channel.h"

#include <utility>

namespace quillon {

namespace {

constexpr std::chrono::seconds Delay{2};
constexpr std::chrono::seconds TooLate{10}; // the pilot may have retuned since, or the simulator was paused

} // namespace

void TuningCheck::Begin(const std::string& frequency) {
    tuned_.reset();
    // An older module's 0x1803 reads back as "118.30", so only three decimals are known to be refused there.
    if (radio_.ReadInHertz || FrequencyKey(frequency).size() == 7)
        tuned_ = {frequency, radio_.CommOffset, clock_.Now()};
}

void TuningCheck::Compare() {
    if (!tuned_ || clock_.Now() - tuned_->since < Delay) return;
    const Tuned tuned = *std::exchange(tuned_, std::nullopt);
    if (clock_.Now() - tuned.since > TooLate || radio_.CommOffset != tuned.offset) return;
    if (FrequencyKey(radio_.MasterFrequency) != FrequencyKey(tuned.frequency))
        notices_.Show({NoticeKind::RadioRefused, tuned.frequency});
}

} // namespace quillon
