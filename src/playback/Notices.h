#pragma once

#include "playback/ScreenTexts.h"
#include "ports/Clock.h"

namespace quillon {

/// What the user is told without a box: each notice stands in the feed's panel for ten seconds, or until the
/// next.
class Notices {
  public:
    Notices(ScreenTexts& texts, Clock& clock) : texts_(texts), clock_(clock) {}

    void Show(const Notice& notice);

    /// Takes a notice away when its time is over. To be called several times a second.
    void Expire();

  private:
    ScreenTexts& texts_;
    Clock& clock_;
    std::optional<TimePoint> shown_at_;
};

} // namespace quillon
