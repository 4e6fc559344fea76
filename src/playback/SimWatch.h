#pragma once

#include "geo/ReceptionRange.h"
#include "playback/ScreenTexts.h"
#include "playback/TuningCheck.h"
#include "ports/MediaPlayer.h"
#include "simlink/RadioReadout.h"
#include "simlink/SimInquiry.h"
#include "state/PlaybackState.h"

#include <functional>

namespace quillon {

/// What becomes of the program when the simulator ends.
class SimPresence {
  public:
    virtual ~SimPresence() = default;

    /// The simulator has ended. Returns whether the program goes on without it.
    virtual bool Gone() = 0;

    /// There is a simulator again. Returns whether the program can follow it.
    virtual bool Back() = 0;
};

/// The start of a tick in both automatic cycles: re-opens the link and follows the pause state, the radio and
/// the range.
class SimWatch {
  public:
    SimWatch(PlaybackState& state, ScreenTexts& texts, FsuipcClient& link, RadioReadout& readout,
             SimInquiry& inquiry, SimPresence& presence, TuningCheck& tuning_check, ReceptionRange& range,
             MediaPlayer& player)
        : state_(state),
          texts_(texts),
          link_(link),
          readout_(readout),
          inquiry_(inquiry),
          presence_(presence),
          tuning_check_(tuning_check),
          range_(range),
          player_(player) {}

    /// Re-opens the link and reads what `tick` needs, then runs it, unless the sound is muted meanwhile. The
    /// last call of a timer's handler.
    void Ask(std::function<void()> tick);

    /// Takes over whether the link is open. If it was lost, what followed the radio stops. Returns whether the
    /// tick goes on.
    bool Relink();

    /// Pauses the player while the simulator is paused and resumes it afterwards. Returns whether the simulator
    /// is paused.
    bool FollowPause();

    /// Takes over the position read. One that could not be read is left as it was.
    void ReadAircraftPosition();

    /// ReadAircraftPosition, then CalcDistance.
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
    /// What the simulator said in this tick.
    struct Answer {
        bool open = false;
        bool slow = false; ///< the window was made to wait
        std::uint32_t result = LinkNotOpen;
        SimReading reading;
    };

    Answer AskNow(std::uint32_t radio_offset);
    bool HasSimulator();
    void LoseRadio();
    std::optional<RadioReading> ReadMasterFrequency();
    std::uint32_t FollowedOffset() const;
    void ShowRange(const RangeReading& reading);

    PlaybackState& state_;
    ScreenTexts& texts_;
    FsuipcClient& link_;
    RadioReadout& readout_;
    SimInquiry& inquiry_;
    SimPresence& presence_;
    TuningCheck& tuning_check_;
    ReceptionRange& range_;
    MediaPlayer& player_;
    Answer answer_;
};

} // namespace quillon
