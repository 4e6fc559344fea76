#pragma once

#include "geo/ReceptionRange.h"
#include "ports/MediaPlayer.h"
#include "simlink/RadioReadout.h"
#include "state/ProgramState.h"

#include <functional>

namespace quillon {

/// What both automatic cycles do at the start of a tick: keep the link, follow the pause state, the radio and
/// the range.
class SimWatch {
  public:
    /// `end_program` is called when a simulator that had been connected has gone.
    SimWatch(ProgramState& state, FsuipcClient& link, RadioReadout& readout, ReceptionRange& range,
             MediaPlayer& player, std::function<void()> end_program)
        : state_(state),
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

    /// Reads the position and refreshes distance and `InRange`.
    void UpdateRange();

    /// Reads the followed radio. The second panel is refreshed with it when `always_show` is set, or when the
    /// reading had a lost zero put back.
    void FollowRadio(bool always_show);

    /// Pauses the player while the feed is out of range; radio stations and playlists have no range. Returns
    /// whether the feed may be heard.
    bool HushOutOfRange();

  private:
    ProgramState& state_;
    FsuipcClient& link_;
    RadioReadout& readout_;
    ReceptionRange& range_;
    MediaPlayer& player_;
    std::function<void()> end_program_;
};

/// Shows a frequency in the second panel; a value that no radio holds leaves it empty.
void ShowFrequency(ProgramState& state, const std::string& tool_tip);

/// Shows the current feed's airport and place in the third panel.
void ShowFeed(ProgramState& state);

} // namespace quillon
