#include "Radios.h"

#include "../Units.h"
#include "radio/RadioWord.h"

namespace practice {

namespace {

using quillon::Channel;

bool GivesHertz(const OffsetMemory& memory) {
    return memory.Get<std::uint32_t>(VersionOffset) >> 28 >= 4;
}

std::string WordText(const OffsetMemory& memory, const Radio& radio) {
    return FrequencyText(memory.Get<std::uint16_t>(radio.word));
}

/// The channel written in Hz; without one the radio stays where it is.
std::string HertzText(const OffsetMemory& memory, const Radio& radio) {
    const auto channel = Channel::AtHertz(memory.Get<std::int32_t>(radio.hertz));
    return channel ? channel->Text() : WordText(memory, radio);
}

} // namespace

std::string RadioText(const OffsetMemory& memory, const Radio& radio) {
    const auto hertz = memory.Get<std::int32_t>(radio.hertz);
    const auto channel = quillon::AgreedChannel(memory.Get<std::uint16_t>(radio.word), hertz);
    return channel && GivesHertz(memory) ? channel->Text() : WordText(memory, radio);
}

bool SetRadio(OffsetMemory& memory, const Radio& radio, std::string_view text) {
    const auto word = RadioWord(text);
    if (!word) return false;
    memory.Set(radio.word, *word);
    if (!GivesHertz(memory)) return true;
    auto channel = Channel::Named(text);
    if (!channel) channel = Channel::Named(FrequencyText(*word));
    memory.Set(radio.hertz, channel ? channel->Hertz() : 0);
    return true;
}

void FollowWrite(OffsetMemory& memory, std::uint64_t offset, std::uint64_t size) {
    const auto written = [&](std::uint64_t start, std::uint64_t length) {
        return offset < start + length && start < offset + size;
    };
    if (!GivesHertz(memory)) return;
    for (const Radio& radio : Radios) {
        if (written(radio.hertz, sizeof(std::int32_t)))
            SetRadio(memory, radio, HertzText(memory, radio));
        else if (written(radio.word, sizeof(std::uint16_t)))
            SetRadio(memory, radio, WordText(memory, radio));
    }
}

} // namespace practice
