#include "playback/MuteKey.h"

#include "state/MuteKeys.h"

#include <algorithm>

namespace quillon {

void MuteKey::Timer5_Timer() {
    if (!Pressed()) return;
    if (state_.mute.Muted)
        mute_.UnMuteSound();
    else
        mute_.MuteSound();
    display_.Repaint(); // the window cannot draw itself while it is blocked
    BlockForTheRestOfTheSecond();
}

bool MuteKey::Pressed() {
    const bool linked = !state_.radio.NoConnection || (state_.radio.SimLost && state_.mute.Muted);
    return IsMeant() && !state_.mute.FrameOpen && linked;
}

/// A key that went down for something else is ignored until it is up again: after Alt+Tab, Tab may be the last
/// to be released, and in a box it moves the focus out of it.
bool MuteKey::IsMeant() {
    const int key = state_.mute.MuteKeyCode;
    const bool down = key != NoMuteKey && keyboard_.IsDown(key);
    const auto shortcut = [this] {
        return std::any_of(ShortcutKeys.begin(), ShortcutKeys.end(),
                           [this](int other) { return keyboard_.IsDown(other); });
    };
    ignored_ = down && (ignored_ || keyboard_.IsInBox() || shortcut());
    return down && !ignored_;
}

/// Also ends if the clock is set back.
void MuteKey::BlockForTheRestOfTheSecond() {
    const TimePoint start = clock_.Now();
    while (DateDiffSeconds(start, clock_.Now()) == 0) clock_.Sleep(std::chrono::milliseconds(10));
}

} // namespace quillon
