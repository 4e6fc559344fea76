#include "playback/AutomaticTuning.h"

#include "playback/CurrentFeed.h"
#include "playback/ShuffleBag.h"
#include "radio/Channel.h"

#include <algorithm>

namespace quillon {

namespace {

/// First row of the channel with that text. The sentinels and the empty text match no row.
std::optional<std::size_t> FindFrequency(const ListView& list, const std::string& frequency) {
    if (frequency.empty() || IsSentinel(frequency)) return std::nullopt;
    const auto& items = list.Items();
    const std::string_view key = FrequencyKey(frequency);
    const auto found = std::find_if(items.begin(), items.end(),
                                    [&](const FeedRecord& item) { return FrequencyKey(item.Freq) == key; });
    if (found == items.end()) return std::nullopt;
    return static_cast<std::size_t>(found - items.begin());
}

/// First row of the followed radio's channel or, if there is none, of the other one on its carrier. What an
/// older module says of the radio is too little to tell the carrier.
std::optional<std::size_t> FindTuned(const ListView& list, const RadioState& radio) {
    const auto row = FindFrequency(list, radio.MasterFrequency);
    const auto channel = Channel::Named(radio.MasterFrequency);
    if (row || !channel || !radio.ReadInHertz) return row;
    const auto other = channel->OnSameCarrier();
    return other ? FindFrequency(list, other->Text()) : std::nullopt;
}

} // namespace

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
        sim_.UpdateRange();
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

void AutomaticTuning::Retune() {
    EmptyPlayer(player_);
    const auto row = FindTuned(list_, state_.radio);
    if (!row) {
        ShowNoFeed();
        return;
    }
    MakeCurrent(state_, texts_, list_.Items()[*row]);
    texts_.ShowFrequency(state_.radio.MasterFrequency, state_.radio.MasterFrequency);
    texts_.ShowFeed();
    texts_.DisplayURL(state_.feed.FeedUrl);
    if (state_.feed.FeedUrlMarker != "0")
        StartStream(*row);
    else
        StartFolder();
    sim_.UpdateRange();
    sim_.HushOutOfRange();
}

void AutomaticTuning::ShowNoFeed() {
    ClearCurrentFeed(state_, texts_);
    texts_.ShowFrequency(state_.radio.MasterFrequency, state_.radio.MasterFrequency);
    texts_.ShowNoFeed();
}

void AutomaticTuning::StartStream(std::size_t row) {
    player_.SetUrl(state_.feed.FeedUrl);
    list_.Select(row);
    list_.EnsureSelectedVisible();
}

void AutomaticTuning::StartFolder() {
    FillShuffleBag(state_.chatter, state_.feed.FeedUrl, trap_.StartupStep());
    PutInCharge(state_.cycle, AutomaticChatterCycle);
}

} // namespace quillon
