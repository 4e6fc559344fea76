#include "playback/MuteKey.h"

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
    return !state_.mute.FrameOpen && linked && keyboard_.IsDown(state_.mute.MuteKeyCode);
}

/// Also ends if the clock is set back.
void MuteKey::BlockForTheRestOfTheSecond() {
    const TimePoint start = clock_.Now();
    while (DateDiffSeconds(start, clock_.Now()) == 0) clock_.Sleep(std::chrono::milliseconds(10));
}

} // namespace quillon
