#pragma once

#include <bitset>
#include <string_view>

namespace quillon {

inline constexpr std::size_t Channels = 759;

/// The airband channels 118.00, 118.02, 118.05, 118.07 ... 136.95 that are free: the 25 kHz raster cut to two
/// decimals.
struct FrequencyPool {
    std::bitset<Channels> Free;
    std::size_t Lowest = 0; ///< no channel before this one is free
};

/// Refills the pool with all channels.
void LoadFrequencies(FrequencyPool& pool);

/// Takes a frequency out of the pool, if it is there.
void RemFreq(FrequencyPool& pool, std::string_view frequency);

/// Takes the lowest free channel out of the pool; empty when the pool is. The text lasts for ever.
std::string_view TakeLowest(FrequencyPool& pool);

} // namespace quillon
