#include "playback/ShuffleBag.h"

#include "runtime/Files.h"
#include "runtime/Text.h"

#include <algorithm>

namespace quillon {

namespace {

namespace fs = std::filesystem;

/// Nothing for a name that is not well-formed Unicode, which no path could be made of.
std::optional<std::string> WaveName(const fs::directory_entry& entry) {
    try {
        const std::string name = TextOf(entry.path().filename());
        std::error_code ignored;
        if (LCase(Right(name, 4)) == ".wav" && entry.is_regular_file(ignored)) return name;
    } catch (const std::system_error&) {
    }
    return std::nullopt;
}

/// Whether a path leads to the same place wherever one starts. GCC's library takes network paths for relative
/// ones.
bool IsWhole(const std::string& path) {
    return path.starts_with("\\\\") || PathOf(path).is_absolute();
}

std::vector<std::string> WaveFilesOf(const fs::path& folder) {
    std::vector<std::string> names;
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end; entry.increment(failure))
        if (auto name = WaveName(*entry)) names.push_back(std::move(*name));
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
    if (!IsWhole(prefix)) return;
    for (const std::string& name : WaveFilesOf(PathOf(prefix))) {
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
