#include "app/WindowView.h"

namespace quillon {

namespace {

NotificationIcon::Picture PictureFor(const ProgramState& state) {
    using enum NotificationIcon::Picture;
    const RadioState& radio = state.radio;
    const bool linked = !radio.Connecting && !radio.NoConnection && !radio.SimLost;
    if (state.mute.Muted) return Muted;
    if (!state.cycle.optManual() && !linked) return NoLink;
    return IsHeard(state.shown.Status.What) ? Playing : Silent;
}

} // namespace

void WindowView::TurnCompact() {
    preferences_.cmdComClose_Click();
    preferences_.cmdClose2_Click();
    state_.form.Compact = !state_.form.Compact;
    Show();
    remembered_.Write();
}

void WindowView::Show() {
    state_.form.Hidden = false;
    ++state_.form.ShowRequest;
}

NotificationIcon IconFor(const ProgramState& state) {
    const std::string& feed = state.form.StatusBar1[static_cast<std::size_t>(StatusPanel::Feed)].Text;
    NotificationIcon icon{state.marks.HideWhenMinimised && !state.Ended, PictureFor(state), state.form.Caption};
    if (!feed.empty()) icon.Tip += "\n" + feed;
    return icon;
}

} // namespace quillon
