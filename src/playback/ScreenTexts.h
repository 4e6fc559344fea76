#pragma once

#include "state/Forms.h"
#include "state/PlaybackState.h"

#include <cstdint>
#include <string>

namespace quillon {

/// The one writer of what title, status bar and labels of the main window say about the player and its feed.
class ScreenTexts {
  public:
    ScreenTexts(PlaybackState& state, frmATC& form) : state_(state), shown_(state.shown), form_(form) {}

    /// What the player does, in the first panel.
    void ShowStatus(PlayerStatus status);

    /// The title: its base, and behind it what the player does.
    void ShowTitle(const std::string& base, PlayerStatus status = {});

    /// The second panel; a frequency that no radio holds leaves it empty, and without the tip.
    void ShowFrequency(const std::string& frequency, const std::string& tip);

    /// The second panel says that no radio is followed.
    void ShowManualPick();

    /// The second panel at once after tuning from the list; its tip waits for the next tick.
    void ShowTunedFrequency(const std::string& frequency);

    /// The current feed's airport and place in the third panel. Without a feed the panel stays as it is.
    void ShowFeed();

    /// What the simulator link does; it covers the feed in the third panel.
    void ShowLink(LinkNews news);

    /// What the station says of itself: the third panel's tip.
    void ShowStation(const std::string& title);

    /// An address in the fourth panel, its last 28 characters if it is longer.
    void DisplayURL(const std::string& address);

    /// The selection mode in the fourth panel.
    void ShowMode();

    /// The third and fourth panel say that the frequency has no feed.
    void ShowNoFeed();

    /// `Label2`.
    void ShowDistance(DistanceValue distance);

    /// The tip of `Label2`: the range in nautical miles, 0 while it is switched off.
    void ShowRange(std::int16_t range);
    void ClearRange();

    /// The countdown's labels, in seconds: how much of the gap has passed, and its length.
    void ShowElapsed(std::int64_t seconds);
    void ShowGap(std::int16_t seconds);

    /// The picture of the live ATC service.
    void ShowServiceLogo(bool visible);

    /// Greys the status bar: the recordings' frequency is no longer the one to follow.
    void GreyStatusBar();

  private:
    void RefreshFeedPanel();

    PlaybackState& state_;
    ShownValues& shown_;
    frmATC& form_;
    std::string feed_text_; ///< the third panel's, once nothing covers it
};

} // namespace quillon
