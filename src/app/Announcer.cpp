#include "app/Announcer.h"

#include "playback/ScreenTexts.h"

#include <utility>

namespace quillon {

namespace {

std::string DistanceText(DistanceKind kind) {
    if (kind == DistanceKind::InRange) return "In range";
    return kind == DistanceKind::OutOfRange ? "Out of range" : "";
}

} // namespace

std::string Announcer::Follow(const ProgramState& state) {
    std::string said;
    const auto say = [&said](const std::string& words) {
        if (!words.empty()) said += (said.empty() ? "" : ". ") + words;
    };
    const ShownValues& shown = state.shown;
    if (std::exchange(muted_, state.mute.Muted) != state.mute.Muted) say(muted_ ? "Muted" : "No longer muted");
    if (std::exchange(activity_, shown.Status.What) != shown.Status.What && activity_ != Activity::Muted)
        say(NameOf(activity_));
    if (std::exchange(distance_, shown.Distance.Kind) != shown.Distance.Kind) say(DistanceText(distance_));
    const std::string& feed = state.form.StatusBar1[static_cast<std::size_t>(StatusPanel::Feed)].Text;
    if (feed_ != feed) say(feed_ = feed);
    return said;
}

} // namespace quillon
