#pragma once

#include <set>
#include <string>

namespace quillon {

/// Refills the pool with all 759 airband channels, 118.00, 118.02, 118.05, 118.07 ... 136.95: the 25 kHz raster
/// cut to two decimals.
void LoadFrequencies(std::set<std::string>& pool);

/// Takes a frequency out of the pool, if it is there.
void RemFreq(std::set<std::string>& pool, const std::string& frequency);

/// The lowest free channel; empty when the pool is.
std::string LowestFree(const std::set<std::string>& pool);

} // namespace quillon
