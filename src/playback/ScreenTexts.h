#pragma once

#include "state/Forms.h"
#include "state/PlaybackState.h"

#include <cstdint>
#include <string>

namespace quillon {

/// What the first panel says of the player, without the seconds of a gap.
std::string NameOf(Activity activity);

/// The only writer of the main window's title, status bar and labels.
class ScreenTexts {
  public:
    ScreenTexts(PlaybackState& state, frmATC& form) : state_(state), shown_(state.shown), form_(form) {}

    /// First panel: what the player does.
    void ShowStatus(PlayerStatus status);

    /// The title: the base and a suffix for what the player does.
    void ShowTitle(const std::string& base, PlayerStatus status = {});

    /// Second panel; in Automatic mode its tip names the followed radio. A sentinel frequency leaves both
    /// empty.
    void ShowFrequency(const std::string& frequency);

    /// Second panel: no radio is followed.
    void ShowManualPick();

    /// Third panel: the current feed's airport and place. No effect without a feed.
    void ShowFeed();

    /// Third panel: why the current feed is silent, which hides notice and feed. With the next try it is the
    /// first panel's tip, too.
    void ShowCondition(const FeedCondition& condition);

    /// Third panel: the link's state, which hides all of these.
    void ShowLink(LinkNews news);

    /// Third panel: the simulator owes an answer, which hides everything else.
    void ShowWaiting(bool waiting);

    /// Third panel: a notice, which hides the feed.
    void ShowNotice(const Notice& notice);

    /// Third panel's tip: the feed, and what the station says it plays.
    void ShowStation(const std::string& title);

    /// Fourth panel: an address, or the last 28 characters of a longer one.
    void DisplayURL(const std::string& address);

    /// Fourth panel: the selection mode.
    void ShowMode();

    /// Third and fourth panel: the frequency has no feed.
    void ShowNoFeed();

    /// `Label2`.
    void ShowDistance(DistanceValue distance);

    /// Tip of `Label2`: the range in nautical miles, 0 if it is off.
    void ShowRange(std::int16_t range);
    void ClearRange();

    /// The countdown's labels, in seconds: how much of the gap has passed, and its length.
    void ShowElapsed(std::int64_t seconds);
    void ShowGap(std::int16_t seconds);

    /// The picture of the live ATC service.
    void ShowServiceLogo(bool visible);

    /// Greys the status bar: the radio has left the recordings' frequency.
    void GreyStatusBar();

  private:
    void RefreshFeedPanel();

    PlaybackState& state_;
    ShownValues& shown_;
    frmATC& form_;
    std::string feed_text_; ///< third panel without news of the link, reason and notice
};

} // namespace quillon
