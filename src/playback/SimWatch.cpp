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

bool SimWatch::FollowPause() {
    const auto pause = readout_.ReadPauseState();
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
    readout_.ReadAircraftPosition();
    range_.CalcDistance();
}

void SimWatch::FollowRadio(bool always_show) {
    const RadioReadout::Frequency read = readout_.ReadMasterFrequency();
    const CommRadio* radio = FindCommRadio(state_.radio.SelectedComm);
    if (always_show)
        ShowFrequency(state_, radio ? radio->Caption : "");
    else if (read == RadioReadout::Frequency::ZeroInserted)
        ShowFrequency(state_, state_.radio.MasterFrequency);
}

bool SimWatch::HushOutOfRange() {
    FeedState& feed = state_.feed;
    if (state_.range.InRange || feed.RadioFeedMarker > 0 || feed.WplMarker > 0) return true;
    player_.Pause();
    feed.RadioFeedMarker = RadioMarker(feed.FeedCity);
    if (feed.RadioFeedMarker > 0) {
        state_.form.Caption = feed.CaptionBase + " -Radio";
        state_.form.Label2.Caption = "Net Radio";
    }
    return false;
}

void ShowFrequency(ProgramState& state, const std::string& tool_tip) {
    const std::string& frequency = state.radio.MasterFrequency;
    Panel& panel = state.form.PanelAt(2);
    panel.Text = IsSentinel(frequency) ? "" : frequency;
    panel.ToolTipText = panel.Text.empty() ? "" : tool_tip;
}

void ShowFeed(ProgramState& state) {
    const FeedState& feed = state.feed;
    const bool none = feed.FeedIcao.empty() && feed.FeedCity.empty() && feed.FeedUrl.empty();
    if (!none) state.form.PanelAt(3).Text = feed.FeedIcao + " - " + feed.FeedCity; // else reloaded under it
}

} // namespace quillon
