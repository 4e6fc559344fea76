#pragma once

#include "geo/ReceptionRange.h"
#include "playback/ScreenTexts.h"
#include "ports/MediaPlayer.h"
#include "simlink/RadioReadout.h"
#include "state/PlaybackState.h"

#include <functional>

namespace quillon {

/// What both automatic cycles do at the start of a tick: keep the link, follow the pause state, the radio and
/// the range.
class SimWatch {
  public:
    /// `end_program` is called when a simulator that had been connected has gone.
    SimWatch(PlaybackState& state, ScreenTexts& texts, FsuipcClient& link, RadioReadout& readout,
             ReceptionRange& range, MediaPlayer& player, std::function<void()> end_program)
        : state_(state),
          texts_(texts),
          link_(link),
          readout_(readout),
          range_(range),
          player_(player),
          end_program_(std::move(end_program)) {}

    /// Opens the link anew. Returns false when the simulator has gone and the program has been ended.
    bool Relink();

    /// Pauses the player while the simulator is paused and starts it again afterwards. Returns whether it is
    /// paused.
    bool FollowPause();

    /// Reads the position and refreshes distance and `InRange`. What cannot be read stays as it was.
    void UpdateRange();

    /// Refreshes distance and `InRange` from the position last read. Without a feed nothing changes; without a
    /// known airport or position only the label does; an error, or points between which there is no distance,
    /// leaves both.
    void CalcDistance();

    /// Reads the followed radio. The second panel is refreshed with it when `always_show` is set, or when the
    /// reading had a lost zero put back.
    void FollowRadio(bool always_show);

    /// Pauses the player while the feed is out of range; radio stations and playlists have no range. Returns
    /// whether the feed may be heard.
    bool HushOutOfRange();

  private:
    void ReadAircraftPosition();
    std::optional<RadioReading> ReadMasterFrequency();
    void ShowRange(const RangeReading& reading);

    PlaybackState& state_;
    ScreenTexts& texts_;
    FsuipcClient& link_;
    RadioReadout& readout_;
    ReceptionRange& range_;
    MediaPlayer& player_;
    std::function<void()> end_program_;
};

} // namespace quillon
