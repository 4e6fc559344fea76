#include "catalogue/FrequencyPool.h"

namespace quillon {

void LoadFrequencies(std::set<std::string>& pool) {
    constexpr int Channels = 759;
    pool.clear();
    int hundredths = 11800; // of a megahertz
    for (int channel = 0; channel < Channels; ++channel) {
        pool.insert(pool.end(), std::to_string(hundredths).insert(3, "."));
        hundredths += channel % 2 == 0 ? 2 : 3;
    }
}

void RemFreq(std::set<std::string>& pool, const std::string& frequency) {
    pool.erase(frequency);
}

std::string LowestFree(const std::set<std::string>& pool) {
    return pool.empty() ? std::string() : *pool.begin();
}

} // namespace quillon
