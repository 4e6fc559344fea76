#include "playback/ChatterSchedule.h"

#include "playback/ShuffleBag.h"
#include "playback/SimWatch.h"
#include "runtime/Number.h"

namespace quillon {

namespace {

constexpr std::int64_t LongestElapsed = 5000; // s

} // namespace

std::int16_t GapSeconds(std::int16_t min_seconds, std::int16_t max_seconds, double r) {
    const std::int16_t width = CInt(CInt(max_seconds - min_seconds) + 1);
    return CInt(Int(width * r) + min_seconds);
}

ChatterSchedule::ChatterSchedule(ProgramState& state, Clock& clock)
    : state_(state), clock_(clock), random_(clock) {
    BeginGap();
}

void ChatterSchedule::BeginGap() {
    state_.chatter.ChatterStartTime = clock_.Now();
}

void ChatterSchedule::MeasureElapsed() {
    ChatterState& chatter = state_.chatter;
    state_.StartupStep = "Check elapsed time";
    chatter.ChatterNowTime = clock_.Now();
    chatter.ChatterElapsed = DateDiffSeconds(chatter.ChatterStartTime, chatter.ChatterNowTime);
    // Less than nothing: the clock was set back, which would stretch the gap by as much.
    if (chatter.ChatterElapsed > LongestElapsed || chatter.ChatterElapsed < 0) {
        chatter.ChatterElapsed = 1;
        chatter.ChatterStartTime = chatter.ChatterNowTime - std::chrono::seconds(1);
    }
    state_.form.Label3.Caption = std::to_string(chatter.ChatterElapsed);
}

bool ChatterSchedule::CountDown() {
    const ChatterState& chatter = state_.chatter;
    if (chatter.ChatterElapsed >= chatter.NextChatterDelay) return false;
    const std::string left = std::to_string(chatter.NextChatterDelay - chatter.ChatterElapsed);
    state_.form.PanelAt(1).Text = "ATC in " + left + " sec";
    state_.form.Caption = "Quillon -" + left;
    ShowFeed(state_);
    return true;
}

std::optional<std::string> ChatterSchedule::Draw(const std::string& step) {
    ChatterState& chatter = state_.chatter;
    chatter.NextChatterDelay = GapSeconds(chatter.ChatterMinSeconds, chatter.ChatterMaxSeconds, random_.Next());
    state_.form.Label4.Caption = std::to_string(chatter.NextChatterDelay);
    state_.StartupStep = step;
    auto path = DrawRecording(chatter, random_.Next());
    if (path)
        state_.StartupStep = "Wave name: " + *path;
    else
        RefillShuffleBag(state_);
    return path;
}

} // namespace quillon
