#include "playback/ShuffleBag.h"

#include "runtime/Files.h"

#include <utility>

namespace quillon {

void FillShuffleBag(ChatterState& chatter, const std::string& folder, std::string& startup_step) {
    std::string& path = chatter.File1Path = folder;
    while (!path.empty() && path.back() == '\\') path.pop_back();
    RefillShuffleBag(chatter, startup_step);
}

void RefillShuffleBag(ChatterState& chatter, std::string& startup_step) {
    chatter.List3.clear();
    chatter.List4.clear();
    startup_step = "Adding Wave Files";
    for (std::string& path : WaveFilesIn(chatter.File1Path)) {
        startup_step = "Adding " + path;
        chatter.List3.push_back(std::move(path));
    }
}

std::optional<std::string> DrawRecording(ChatterState& chatter, double r) {
    auto& bag = chatter.List3;
    if (bag.empty()) return std::nullopt;
    const auto drawn = bag.begin() + static_cast<std::ptrdiff_t>(r * static_cast<double>(bag.size()));
    chatter.List4.push_back(std::move(*drawn));
    bag.erase(drawn);
    return chatter.List4.back();
}

} // namespace quillon
