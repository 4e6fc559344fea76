#pragma once

#include "radio/Channel.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quillon {

/// A radio's frequency.
struct RadioReading {
    std::string frequency; ///< "###.##" or, of an 8.33 kHz channel, "###.###", MHz
    bool zero_inserted;    ///< a lost zero was put back in front of the last digit
    bool in_hertz = false; ///< read to its last digit, not only to those of the BCD word
};

/// The frequency of a radio's two BCD bytes: `high` holds the tens and units of MHz above 100, `low` the
/// decimals. 0x18 and 0x05 give "118.05": a lost leading zero is put back, and the channel raster tells at
/// which end.
RadioReading DecodeFrequency(std::uint8_t high, std::uint8_t low);

/// The channel of a radio that is known both as BCD word and in Hz. Nothing if the two are more than 10 kHz
/// apart, because the number then means something else, or if it names no channel.
std::optional<Channel> AgreedChannel(std::uint16_t word, std::int32_t hertz);

/// A frequency text "1##.##" as a radio's BCD word: "118.30" is 0x1830, and so is "118.305", whose last digit
/// has no place. Otherwise uses only characters 2, 3 and the last two; raises error 13 if they are not digits.
std::uint32_t BcdOfFrequency(const std::string& frequency);

} // namespace quillon
