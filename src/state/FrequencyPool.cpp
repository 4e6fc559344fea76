#include "state/FrequencyPool.h"

#include <array>

namespace quillon {

namespace {

constexpr std::size_t FirstHundredths = 11800; // of a megahertz

using Texts = std::array<std::array<char, 6>, Channels>;

constexpr Texts MakeTexts() {
    Texts texts{};
    for (std::size_t channel = 0; channel < Channels; ++channel) {
        std::size_t hundredths = FirstHundredths + channel / 2 * 5 + channel % 2 * 2;
        for (const std::size_t place : {5U, 4U, 2U, 1U, 0U}) {
            texts[channel][place] = static_cast<char>('0' + hundredths % 10);
            hundredths /= 10;
        }
        texts[channel][3] = '.';
    }
    return texts;
}

constexpr Texts AllTexts = MakeTexts();

std::string_view TextOf(std::size_t channel) {
    return {AllTexts[channel].data(), AllTexts[channel].size()};
}

} // namespace

void LoadFrequencies(FrequencyPool& pool) {
    pool.Free.set();
    pool.Lowest = 0;
}

void RemFreq(FrequencyPool& pool, std::string_view frequency) {
    if (frequency.size() != 6 || frequency[3] != '.') return;
    std::size_t hundredths = 0;
    for (const char c : frequency)
        if (c != '.') hundredths = hundredths * 10 + static_cast<unsigned char>(c - '0');
    if (hundredths < FirstHundredths) return;
    const std::size_t channel = (hundredths - FirstHundredths) / 5 * 2 + (hundredths % 5 == 2 ? 1 : 0);
    if (channel < Channels && TextOf(channel) == frequency) pool.Free.reset(channel);
}

std::string_view TakeLowest(FrequencyPool& pool) {
    while (pool.Lowest < Channels && !pool.Free[pool.Lowest]) ++pool.Lowest;
    return pool.Lowest < Channels ? TextOf(pool.Lowest++) : std::string_view();
}

} // namespace quillon
