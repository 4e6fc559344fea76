#include "catalogue/FrequencyPool.h"

#include "runtime/Number.h"

namespace quillon {

void LoadFrequencies(std::set<std::string>& pool) {
    constexpr int Channels = 759;
    pool.clear();
    std::string frequency = "118.00";
    for (int channel = 0; channel < Channels; ++channel) {
        pool.insert(frequency);
        frequency = Format(Val(frequency) + (channel % 2 == 0 ? 0.02 : 0.03), "###.00");
    }
}

void RemFreq(std::set<std::string>& pool, const std::string& frequency) {
    pool.erase(frequency);
}

std::string LowestFree(const std::set<std::string>& pool) {
    return pool.empty() ? std::string() : *pool.begin();
}

} // namespace quillon
