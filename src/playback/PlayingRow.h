#pragma once

#include "state/ListView.h"
#include "state/PlaybackState.h"

#include <array>
#include <string>

namespace quillon {

/// Highlights the row of the current feed, or none, whenever another feed becomes the current one. What the
/// user selects in between stays selected.
class PlayingRow {
  public:
    PlayingRow(const FeedState& feed, ListView& list) : feed_(feed), list_(list) {}

    /// To be called after each handler.
    void Follow();

  private:
    void Highlight();

    const FeedState& feed_;
    ListView& list_;
    std::array<std::string, 4> followed_;
};

} // namespace quillon
