#include "playback/SimWatch.h"

#include "playback/CurrentFeed.h"
#include "state/FeedMarkers.h"

#include <utility>

namespace quillon {

namespace {

constexpr std::chrono::milliseconds LongestBeat{200}; // of a tick that leaves the timer's beat alone
constexpr int TickInterval = 1000;
constexpr int LookingInterval = 2000;

} // namespace

void SimWatch::Ask(std::function<void()> tick) {
    answer_ = {};
    if (state_.radio.Connecting) {
        tick();
        return;
    }
    inquiry_.Ask([this, radio = FollowedOffset()] { answer_ = AskNow(radio); },
                 [this, tick = std::move(tick)] {
                     if (CycleRuns(state_.cycle)) tick(); // else it has been muted meanwhile
                     if (answer_.slow) RestartCycle(state_.cycle);
                 });
}

/// Runs beside the window's thread.
SimWatch::Answer SimWatch::AskNow(std::uint32_t radio_offset) {
    Answer answer;
    answer.open = link_.FsuipcReopen(answer.result);
    if (answer.open) answer.reading = readout_.Read(radio_offset, answer.result);
    answer.slow = link_.SinceBegin() > LongestBeat;
    return answer;
}

bool SimWatch::Relink() {
    RadioState& radio = state_.radio;
    radio.FsuipcResult = answer_.result;
    radio.NoConnection = !HasSimulator();
    if (radio.NoConnection && radio.SimConnected && !radio.SimLost && !presence_.Gone()) return false;
    texts_.ShowLink(radio.NoConnection ? LinkNews::Looking : LinkNews::None);
    state_.cycle.Timer(AutomaticTuningCycle).Interval = radio.SimLost ? LookingInterval : TickInterval;
    if (!radio.NoConnection || IsSentinel(radio.MasterFrequency)) return true;
    LoseRadio();
    return false;
}

bool SimWatch::HasSimulator() {
    return answer_.open && (!state_.radio.SimLost || presence_.Back());
}

/// The next simulator's radio counts as tuned anew, even to the same frequency.
void SimWatch::LoseRadio() {
    state_.radio.MasterFrequency = UnreadFrequency;
    EmptyPlayer(player_);
    ClearCurrentFeed(state_, texts_);
    texts_.ShowFrequency("");
    texts_.ShowNoFeed();
    texts_.ShowStatus({Activity::Stopped});
    state_.cycle.CaptionBase = "Quillon";
    texts_.ShowTitle(state_.cycle.CaptionBase, {Activity::Stopped});
    state_.cycle.ForceRetune = true;
    PutInCharge(state_.cycle, AutomaticTuningCycle);
}

bool SimWatch::FollowPause() {
    const auto pause = answer_.reading.PauseState();
    if (!pause) return false;
    const std::int16_t before = state_.radio.SimPauseState;
    state_.radio.SimPauseState = *pause;
    if (*pause == 1) {
        player_.Pause();
        UpdateRange();
        return true;
    }
    if (*pause != before) player_.Play();
    return false;
}

void SimWatch::UpdateRange() {
    ReadAircraftPosition();
    CalcDistance();
}

void SimWatch::ReadAircraftPosition() {
    RadioState& radio = state_.radio;
    const PositionReading position = answer_.reading.Position();
    if (position.latitude) {
        radio.AircraftLatitude = *position.latitude;
        radio.AircraftLatitudeText = DegreesText(*position.latitude);
    }
    if (position.longitude) {
        radio.AircraftLongitude = *position.longitude;
        radio.AircraftLongitudeText = DegreesText(*position.longitude);
    }
}

void SimWatch::CalcDistance() {
    const bool has_airport = state_.shown.Distance.Kind != DistanceKind::NetRadio;
    const RangeReading reading = range_.CalcDistance(
        {state_.feed.FeedIcao, state_.range.AirportSearchStart, has_airport},
        {state_.radio.AircraftLatitudeText, state_.radio.AircraftLongitudeText}, state_.range.ReceptionRange);
    if (reading.in_range) state_.range.InRange = *reading.in_range;
    ShowRange(reading);
}

void SimWatch::ShowRange(const RangeReading& reading) {
    using Distance = RangeReading::Distance;
    const FeedState& feed = state_.feed;
    if (reading.in_range) texts_.ShowRange(state_.range.ReceptionRange);
    if (reading.distance == Distance::Unknown) {
        if (RadioMarker(feed.FeedCity) > 0)
            texts_.ShowDistance({DistanceKind::NetRadio});
        else
            texts_.ShowDistance({feed.WplMarker < 1 ? DistanceKind::UnknownAirport : DistanceKind::PlayList});
    }
    if (reading.distance != Distance::Measured) return;
    const DistanceKind beyond =
        state_.cycle.optManual() ? DistanceKind::OutOfRangeInManualMode : DistanceKind::OutOfRange;
    texts_.ShowDistance({state_.range.InRange ? DistanceKind::InRange : beyond, reading.nautical_miles});
}

void SimWatch::FollowRadio(bool always_show) {
    const auto read = ReadMasterFrequency();
    if (always_show || (read && read->zero_inserted)) texts_.ShowFrequency(state_.radio.MasterFrequency);
}

std::optional<RadioReading> SimWatch::ReadMasterFrequency() {
    RadioState& radio = state_.radio;
    radio.CommOffset = FollowedOffset();
    auto read = answer_.reading.Radio();
    if (!read) return read;
    radio.MasterFrequency = read->frequency;
    radio.ReadInHertz = read->in_hertz;
    tuning_check_.Compare();
    return read;
}

/// Without a chosen radio the last offset stays in force.
std::uint32_t SimWatch::FollowedOffset() const {
    const CommRadio* followed = FindCommRadio(state_.radio.SelectedComm);
    return followed ? followed->Offset : state_.radio.CommOffset;
}

bool SimWatch::HushOutOfRange() {
    FeedState& feed = state_.feed;
    if (state_.range.InRange || feed.RadioFeedMarker > 0 || feed.WplMarker > 0) return true;
    player_.FadeOut();
    feed.RadioFeedMarker = RadioMarker(feed.FeedCity);
    if (feed.RadioFeedMarker > 0) {
        texts_.ShowTitle(state_.cycle.CaptionBase, {Activity::NetRadio});
        texts_.ShowDistance({DistanceKind::NetRadio});
    }
    return false;
}

} // namespace quillon
