#pragma once

#include "geo/ReceptionRange.h"
#include "playback/ScreenTexts.h"
#include "ports/MediaPlayer.h"
#include "simlink/RadioReadout.h"
#include "state/PlaybackState.h"

#include <functional>

namespace quillon {

/// The start of a tick in both automatic cycles: re-opens the link and follows the pause state, the radio and
/// the range.
class SimWatch {
  public:
    /// `end_program` is called once a connected simulator is gone.
    SimWatch(PlaybackState& state, ScreenTexts& texts, FsuipcClient& link, RadioReadout& readout,
             ReceptionRange& range, MediaPlayer& player, std::function<void()> end_program)
        : state_(state),
          texts_(texts),
          link_(link),
          readout_(readout),
          range_(range),
          player_(player),
          end_program_(std::move(end_program)) {}

    /// Re-opens the link. Returns false if the simulator is gone and the program was ended.
    bool Relink();

    /// Reads what the rest of the tick needs. Call it once, before FollowPause.
    void Read();

    /// Pauses the player while the simulator is paused and resumes it afterwards. Returns whether the simulator
    /// is paused.
    bool FollowPause();

    /// Takes over the position read, then CalcDistance. A position that could not be read is left as it was.
    void UpdateRange();

    /// Updates the distance label and `InRange` from the last position. Without a feed nothing changes; without
    /// a known airport or position only the label does; if the distance cannot be computed, neither does.
    void CalcDistance();

    /// Takes over the followed radio's frequency. Updates the second panel if `always_show` is set or the
    /// reading had its lost zero restored.
    void FollowRadio(bool always_show);

    /// Pauses the player if the feed is out of range; radio stations and playlists have no range. Returns
    /// whether the feed may be heard.
    bool HushOutOfRange();

  private:
    void ReadAircraftPosition();
    std::optional<RadioReading> ReadMasterFrequency();
    std::uint32_t FollowedOffset() const;
    void ShowRange(const RangeReading& reading);

    PlaybackState& state_;
    ScreenTexts& texts_;
    FsuipcClient& link_;
    RadioReadout& readout_;
    ReceptionRange& range_;
    MediaPlayer& player_;
    std::function<void()> end_program_;
    SimReading reading_;
};

} // namespace quillon
