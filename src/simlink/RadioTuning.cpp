#include "simlink/RadioTuning.h"

#include "runtime/Number.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "simlink/RadioReadout.h"

#include <algorithm>
#include <memory>

namespace quillon {

std::uint32_t BcdOfFrequency(const std::string& frequency) {
    const std::string digits = Mid(frequency, 2, 2) + Right(frequency, 2);
    const bool decimal = std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (digits.size() != 4 || !decimal) Raise(TypeMismatch);
    return static_cast<std::uint32_t>(Val("&H" + digits)) & 0xFFFFU;
}

void RadioTuning::Write_FSUIPC(const std::string& TuneFrequencyText) {
    if (const CommRadio* radio = FindCommRadio(radio_.SelectedComm)) radio_.CommOffset = radio->Offset;
    const std::uint32_t word = BcdOfFrequency(TuneFrequencyText);
    const auto result = std::make_shared<std::uint32_t>(radio_.FsuipcResult);
    inquiry_.Ask(
        [this, offset = radio_.CommOffset, word, result] {
            link_.BeginQuestions();
            LL2(offset, word, *result);
            link_.FsuipcProcess(*result);
        },
        [this, result] { radio_.FsuipcResult = *result; });
}

/// Four bytes: the two after the radio's own word become zero.
void RadioTuning::LL2(std::uint32_t offset, std::uint32_t word, std::uint32_t& result) {
    if (offset != 0) link_.FsuipcWrite(offset, sizeof word, &word, result);
}

} // namespace quillon
