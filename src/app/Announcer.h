#pragma once

#include "state/ProgramState.h"

#include <string>

namespace quillon {

/// What a screen reader says by itself, wherever the keyboard is.
class Announcer {
  public:
    /// What has changed since the last call: the player, whether it is muted, whether the feed is in range, and
    /// the feed's panel. The seconds of a gap and the miles are no change. Empty if there is nothing to say.
    std::string Follow(const ProgramState& state);

  private:
    Activity activity_ = Activity::None;
    bool muted_ = false;
    DistanceKind distance_ = DistanceKind::None;
    std::string feed_;
};

} // namespace quillon
