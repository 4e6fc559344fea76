#include "radio/RadioWord.h"

#include "runtime/Number.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <algorithm>
#include <cstdlib>

namespace quillon {

RadioReading DecodeFrequency(std::uint8_t high, std::uint8_t low) {
    std::string text = "1" + Hex(high) + "." + Hex(low);
    if (text.size() != 5) return {text, false};
    // The 25 kHz raster has .02, .05 and .07 but no .20, .50 or .70 that would lose its last zero in BCD.
    if (text[4] == '7' || text[4] == '5' || text[4] == '2') return {text.insert(4, "0"), true};
    return {text + "0", false};
}

std::optional<Channel> AgreedChannel(std::uint16_t word, std::int32_t hertz) {
    constexpr std::int32_t Tolerance = 10'000;
    const auto channel = Channel::AtHertz(hertz);
    if (!channel) return std::nullopt;
    std::int32_t digits = 1;
    for (const int bits : {12, 8, 4, 0}) {
        const std::int32_t digit = word >> bits & 15;
        if (digit > 9) return std::nullopt;
        digits = digits * 10 + digit;
    }
    return std::abs(hertz - digits * 10'000) <= Tolerance ? channel : std::nullopt;
}

std::uint32_t BcdOfFrequency(const std::string& frequency) {
    const std::string shown = Channel::Named(frequency) ? frequency.substr(0, 6) : frequency;
    const std::string digits = Mid(shown, 2, 2) + Right(shown, 2);
    const bool decimal = std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (digits.size() != 4 || !decimal) Raise(TypeMismatch);
    return static_cast<std::uint32_t>(Val("&H" + digits)) & 0xFFFFU;
}

} // namespace quillon
