#include "playback/ChatterSchedule.h"

#include "runtime/Number.h"

namespace quillon {

namespace {

constexpr std::int64_t LongestElapsed = 5000; // s

} // namespace

std::int16_t GapSeconds(std::int16_t min_seconds, std::int16_t max_seconds, double r) {
    const std::int16_t width = CInt(CInt(max_seconds - min_seconds) + 1);
    return CInt(Int(width * r) + min_seconds);
}

ChatterSchedule::ChatterSchedule(ChatterState& chatter, ShuffleBag& bag, ScreenTexts& texts, Clock& clock,
                                 std::string& startup_step)
    : chatter_(chatter), bag_(bag), texts_(texts), clock_(clock), startup_step_(startup_step), random_(clock) {
    BeginGap();
}

void ChatterSchedule::BeginGap() {
    chatter_.ChatterStartTime = clock_.Now();
}

bool ChatterSchedule::FolderIsKnown() {
    const bool was_being_listed = chatter_.Folder == ChatterFolder::BeingListed;
    const ChatterFolder folder = bag_.Look();
    if (folder == ChatterFolder::BeingListed) ShowSilence();
    if (was_being_listed && chatter_.IsRefill && chatter_.List3.empty()) BeginGap();
    return folder != ChatterFolder::BeingListed;
}

void ChatterSchedule::MeasureElapsed() {
    startup_step_ = "Check elapsed time";
    chatter_.ChatterNowTime = clock_.Now();
    chatter_.ChatterElapsed = DateDiffSeconds(chatter_.ChatterStartTime, chatter_.ChatterNowTime);
    // Negative if the clock was set back, which would stretch the gap by as much.
    if (chatter_.ChatterElapsed > LongestElapsed || chatter_.ChatterElapsed < 0) {
        chatter_.ChatterElapsed = 1;
        chatter_.ChatterStartTime = chatter_.ChatterNowTime - std::chrono::seconds(1);
    }
    texts_.ShowElapsed(chatter_.ChatterElapsed);
}

bool ChatterSchedule::CountDown() {
    if (chatter_.Folder != ChatterFolder::HasRecordings) ShowSilence();
    if (chatter_.ChatterElapsed >= chatter_.NextChatterDelay) return false;
    if (chatter_.Folder != ChatterFolder::HasRecordings) return true;
    texts_.ShowCondition({});
    const PlayerStatus gap{Activity::Gap, chatter_.NextChatterDelay - chatter_.ChatterElapsed};
    texts_.ShowStatus(gap);
    texts_.ShowTitle("Quillon", gap);
    texts_.ShowFeed();
    return true;
}

/// No countdown to what will not come. While a folder is listed again, what was known of it stays on screen.
void ChatterSchedule::ShowSilence() {
    if (chatter_.Folder == ChatterFolder::Empty)
        texts_.ShowCondition({{SilenceCause::NoRecordings, chatter_.File1Path}, {}});
    if (chatter_.Folder == ChatterFolder::OutOfReach)
        texts_.ShowCondition({{SilenceCause::NoSuchFolder, chatter_.File1Path}, {}});
    texts_.ShowStatus({Activity::Stopped});
    texts_.ShowTitle("Quillon", {Activity::Stopped});
    texts_.ShowFeed();
}

std::optional<std::string> ChatterSchedule::Draw(const std::string& step) {
    chatter_.NextChatterDelay =
        GapSeconds(chatter_.ChatterMinSeconds, chatter_.ChatterMaxSeconds, random_.Next());
    texts_.ShowGap(chatter_.NextChatterDelay);
    startup_step_ = step;
    auto path = bag_.Draw(random_.Next());
    if (path)
        startup_step_ = "Wave name: " + *path;
    else
        bag_.Refill();
    return path;
}

} // namespace quillon
