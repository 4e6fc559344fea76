#include "playback/AutomaticTuning.h"

#include "playback/CurrentFeed.h"

namespace quillon {

void AutomaticTuning::Timer1_Timer() {
    state_.cycle.ActiveTimerId = AutomaticTuningCycle;
    sim_.Ask([this] { trap_.Run("Timer1 errors", Icon::Information, [this] { Tick(); }); });
}

void AutomaticTuning::Tick() {
    if (!sim_.Relink()) return;
    state_.cycle.CaptionBase = "Quillon";
    display_.GetWMPState();
    trap_.StartupStep() = "Check pause state";
    if (sim_.FollowPause()) return;
    state_.radio.PreviousFrequency = state_.radio.MasterFrequency;
    trap_.StartupStep() = "Get master frequency";
    sim_.FollowRadio(false);
    trap_.StartupStep() = "Check range";
    if (sim_.HushOutOfRange() && !state_.feed.FeedFrequency.empty()) player_.Play();
    if (FrequencyChanged())
        Retune();
    else
        FollowRange();
}

bool AutomaticTuning::FrequencyChanged() {
    RadioState& radio = state_.radio;
    if (state_.cycle.ForceRetune) {
        state_.cycle.ForceRetune = false;
        radio.PreviousFrequency = ForcedFrequency;
    }
    trap_.StartupStep() = "Compare previous and master frequencies";
    return IsRetuned(radio) || state_.shown.Status.What == Activity::NoConnection;
}

void AutomaticTuning::FollowRange() {
    sim_.UpdateRange();
    if (const auto row = choice_.Relief()) PlayRow(*row);
}

void AutomaticTuning::Retune() {
    EmptyPlayer(player_);
    sim_.ReadAircraftPosition();
    if (const auto row = choice_.Tuned())
        PlayRow(*row);
    else
        ShowNoFeed();
}

void AutomaticTuning::PlayRow(std::size_t row) {
    EmptyPlayer(player_);
    MakeCurrent(state_, texts_, list_.Items()[row]);
    texts_.ShowFrequency(state_.radio.MasterFrequency);
    texts_.ShowFeed();
    texts_.DisplayURL(state_.feed.FeedUrl);
    if (state_.feed.FeedUrlMarker != "0")
        player_.SetUrl(state_.feed.FeedUrl);
    else
        StartFolder();
    sim_.UpdateRange();
    sim_.HushOutOfRange();
}

void AutomaticTuning::ShowNoFeed() {
    ClearCurrentFeed(state_, texts_);
    texts_.ShowFrequency(state_.radio.MasterFrequency);
    texts_.ShowNoFeed();
}

void AutomaticTuning::StartFolder() {
    bag_.Fill(state_.feed.FeedUrl);
    PutInCharge(state_.cycle, AutomaticChatterCycle);
}

} // namespace quillon
