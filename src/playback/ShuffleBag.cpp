#include "playback/ShuffleBag.h"

#include "runtime/Files.h"

#include <utility>

namespace quillon {

void FillShuffleBag(ProgramState& state, const std::string& folder) {
    std::string& path = state.chatter.File1Path = folder;
    while (!path.empty() && path.back() == '\\') path.pop_back();
    RefillShuffleBag(state);
}

void RefillShuffleBag(ProgramState& state) {
    ChatterState& chatter = state.chatter;
    chatter.List3.clear();
    chatter.List4.clear();
    state.StartupStep = "Adding Wave Files";
    for (std::string& path : WaveFilesIn(chatter.File1Path)) {
        state.StartupStep = "Adding " + path;
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
