#include "simlink/RadioTuning.h"

#include "runtime/Number.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "simlink/RadioReadout.h"

#include <algorithm>

namespace quillon {

std::uint32_t BcdOfFrequency(const std::string& frequency) {
    const std::string digits = Mid(frequency, 2, 2) + Right(frequency, 2);
    const bool decimal = std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (digits.size() != 4 || !decimal) Raise(TypeMismatch);
    return static_cast<std::uint32_t>(Val("&H" + digits)) & 0xFFFFU;
}

void RadioTuning::Write_FSUIPC(const std::string& TuneFrequencyText) {
    if (const CommRadio* radio = FindCommRadio(radio_.SelectedComm)) radio_.CommOffset = radio->Offset;
    LL2(TuneFrequencyText);
    link_.FsuipcProcess(radio_.FsuipcResult);
}

void RadioTuning::LL2(const std::string& TuneFrequencyText) {
    const std::uint32_t word = BcdOfFrequency(TuneFrequencyText);
    // Four bytes: the two after the radio's own word become zero.
    if (radio_.CommOffset != 0) link_.FsuipcWrite(radio_.CommOffset, sizeof word, &word, radio_.FsuipcResult);
}

} // namespace quillon
