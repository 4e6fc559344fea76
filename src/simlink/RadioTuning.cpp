#include "simlink/RadioTuning.h"

#include "radio/RadioWord.h"
#include "simlink/RadioReadout.h"

#include <memory>
#include <utility>

namespace quillon {

void RadioTuning::Write_FSUIPC(const std::string& TuneFrequencyText, std::function<void()> then) {
    if (const CommRadio* radio = FindCommRadio(radio_.SelectedComm)) radio_.CommOffset = radio->Offset;
    const std::uint32_t word = BcdOfFrequency(TuneFrequencyText);
    const std::int32_t hertz = HertzFor(TuneFrequencyText);
    const auto result = std::make_shared<std::uint32_t>(radio_.FsuipcResult);
    inquiry_.Ask(
        [this, offset = radio_.CommOffset, word, hertz, result] {
            link_.BeginQuestions();
            LL2(offset, word, *result);
            if (hertz != 0) QueueHertz(offset, hertz, *result);
            link_.FsuipcProcess(*result);
        },
        [this, result, then = std::move(then)] {
            radio_.FsuipcResult = *result;
            then();
        });
}

/// Four bytes: the two after the radio's own word become zero.
void RadioTuning::LL2(std::uint32_t offset, std::uint32_t word, std::uint32_t& result) {
    if (offset != 0) link_.FsuipcWrite(offset, sizeof word, &word, result);
}

/// 0 if the word is enough, or all that the radio has.
std::int32_t RadioTuning::HertzFor(const std::string& frequency) const {
    const auto channel = Channel::Named(frequency);
    return radio_.ReadInHertz && channel && channel->NeedsThreeDecimals() ? channel->Hertz() : 0;
}

void RadioTuning::QueueHertz(std::uint32_t offset, std::int32_t hertz, std::uint32_t& result) {
    const CommRadio* radio = FindCommRadioAt(offset);
    if (radio) link_.FsuipcWrite(radio->HertzOffset, sizeof hertz, &hertz, result);
}

} // namespace quillon
