#include "playback/SimWatch.h"

#include "state/FeedMarkers.h"

namespace quillon {

bool SimWatch::Relink() {
    RadioState& radio = state_.radio;
    radio.NoConnection = !link_.FsuipcReopen(radio.FsuipcResult);
    if (radio.NoConnection && radio.SimConnected) {
        end_program_();
        return false;
    }
    return true;
}

void SimWatch::Read() {
    reading_ = readout_.Read(FollowedOffset());
}

bool SimWatch::FollowPause() {
    const auto pause = reading_.PauseState();
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
    const PositionReading position = reading_.Position();
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
    const CommRadio* radio = FindCommRadio(state_.radio.SelectedComm);
    if (always_show)
        texts_.ShowFrequency(state_.radio.MasterFrequency, radio ? radio->Caption : "");
    else if (read && read->zero_inserted)
        texts_.ShowFrequency(state_.radio.MasterFrequency, state_.radio.MasterFrequency);
}

std::optional<RadioReading> SimWatch::ReadMasterFrequency() {
    RadioState& radio = state_.radio;
    radio.CommOffset = FollowedOffset();
    auto read = reading_.Radio();
    if (read) radio.MasterFrequency = read->frequency;
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
    player_.Pause();
    feed.RadioFeedMarker = RadioMarker(feed.FeedCity);
    if (feed.RadioFeedMarker > 0) {
        texts_.ShowTitle(state_.cycle.CaptionBase, {Activity::NetRadio});
        texts_.ShowDistance({DistanceKind::NetRadio});
    }
    return false;
}

} // namespace quillon
