#include "playback/ShuffleBag.h"

#include "runtime/Files.h"
#include "runtime/Text.h"

#include <algorithm>

namespace quillon {

namespace {

std::vector<std::string> WaveFilesOf(const std::string& folder) {
    std::vector<std::string> names = FileNamesIn(folder);
    std::erase_if(names, [](const std::string& name) { return LCase(Right(name, 4)) != ".wav"; });
    std::sort(names.begin(), names.end(),
              [](const std::string& a, const std::string& b) { return LCase(a) < LCase(b); });
    return names;
}

} // namespace

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
    const std::string prefix = chatter.File1Path + "\\"; // "C:" alone would be wherever drive C happens to be
    if (!IsWholePath(prefix)) return;
    for (const std::string& name : WaveFilesOf(chatter.File1Path)) {
        chatter.List3.push_back(prefix + name);
        state.StartupStep = "Adding " + chatter.List3.back();
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
