#include "playback/ScreenTexts.h"

#include "runtime/Number.h"
#include "runtime/Text.h"
#include "simlink/RadioReadout.h"

#include <array>

namespace quillon {

namespace {

struct ActivityTexts {
    Activity What;
    const char* Panel;
    const char* Suffix; ///< of the title
};
constexpr ActivityTexts Activities[] = {
    {Activity::None, "", ""},
    {Activity::Stopped, "Stopped", " -S"},
    {Activity::Paused, "Paused", " -P"},
    {Activity::OutOfRange, "Paused", " -OR"},
    {Activity::Playing, "Playing", " -OK"},
    {Activity::NetRadio, "Playing", " -Radio"},
    {Activity::Buffering, "Buffering", " -B"},
    {Activity::Connecting, "Connecting", " -C"},
    {Activity::NoConnection, "No Connection", " -NC"},
    {Activity::Muted, "Muted", " -Mute"},
    {Activity::RecordingPlays, "ATC Playing", " -OK"},
    {Activity::Gap, "ATC in ", " -"},
};

constexpr const char* DistanceTexts[] = {
    "",
    "Stopped",
    "Manual Mode",
    "Net Radio",
    "Windows PlayList",
    "ATC Wave File",
    "ICAO not found!",
    "",
    " (Out of Range)",
    " (Manual Mode)",
};

constexpr const char* NoFeed = "*";

std::string NoticeText(const Notice& notice) {
    constexpr const char* Words[] = {"",
                                     "The radio rejected ",
                                     "Sound device gone: ",
                                     "Number separators left unchanged: they could not be saved",
                                     "",
                                     ""};
    return Words[static_cast<std::size_t>(notice.What)] + notice.About;
}

const ActivityTexts& TextsOf(Activity what) {
    return Activities[static_cast<std::size_t>(what)];
}

/// Whole nautical miles, with "," between the thousands.
std::string MilesText(std::int32_t nautical_miles) {
    const std::string text = Format(nautical_miles, "#,###,###");
    return text.empty() ? "0" : text;
}

} // namespace

std::string NameOf(Activity activity) {
    return activity == Activity::Gap ? "Gap" : TextsOf(activity).Panel;
}

void ScreenTexts::ShowStatus(PlayerStatus status) {
    shown_.Status = status;
    std::string& text = form_[StatusPanel::Player].Text = TextsOf(status.What).Panel;
    if (status.What == Activity::Gap) text += std::to_string(status.SecondsLeft) + " sec";
}

void ScreenTexts::ShowTitle(const std::string& base, PlayerStatus status) {
    form_.Caption = base + TextsOf(status.What).Suffix;
    if (status.What == Activity::Gap) form_.Caption += std::to_string(status.SecondsLeft);
}

void ScreenTexts::ShowFrequency(const std::string& frequency) {
    const CommRadio* radio = state_.cycle.optManual() ? nullptr : FindCommRadio(state_.radio.SelectedComm);
    Panel& panel = form_[StatusPanel::Frequency];
    panel.Text = IsSentinel(frequency) ? "" : frequency;
    panel.ToolTipText = panel.Text.empty() || radio == nullptr ? "" : radio->Caption;
}

void ScreenTexts::ShowManualPick() {
    Panel& panel = form_[StatusPanel::Frequency];
    panel.Text = panel.ToolTipText = "Manual";
}

void ScreenTexts::ShowFeed() {
    const FeedState& feed = state_.feed;
    if (feed.FeedIcao.empty() && feed.FeedCity.empty() && feed.FeedUrl.empty()) return; // reloaded under it
    feed_text_ = feed.FeedIcao + " - " + feed.FeedCity;
    RefreshFeedPanel();
}

void ScreenTexts::ShowCondition(const FeedCondition& condition) {
    shown_.Condition = condition;
    form_[StatusPanel::Player].ToolTipText = WordsOf(condition);
    RefreshFeedPanel();
}

void ScreenTexts::ShowLink(LinkNews news) {
    shown_.Link = news;
    RefreshFeedPanel();
}

void ScreenTexts::ShowWaiting(bool waiting) {
    if (shown_.Waiting == waiting) return;
    shown_.Waiting = waiting;
    RefreshFeedPanel();
}

void ScreenTexts::ShowNotice(const Notice& notice) {
    shown_.Passing = notice;
    RefreshFeedPanel();
}

void ScreenTexts::ShowStation(const std::string& title) {
    shown_.Station = title;
    RefreshFeedPanel();
}

void ScreenTexts::DisplayURL(const std::string& address) {
    form_[StatusPanel::Address].Text = Len(address) > 28 ? "..." + Right(address, 28) : address;
}

void ScreenTexts::ShowMode() {
    form_[StatusPanel::Address].Text =
        state_.cycle.optManual() ? "Selection Mode: Manual" : "Selection Mode: Automatic";
}

void ScreenTexts::ShowNoFeed() {
    feed_text_ = NoFeed;
    RefreshFeedPanel();
    form_[StatusPanel::Address].Text = NoFeed;
}

void ScreenTexts::ShowDistance(DistanceValue distance) {
    shown_.Distance = distance;
    std::string& text = form_.Label2.Caption = DistanceTexts[static_cast<std::size_t>(distance.Kind)];
    if (distance.Kind >= DistanceKind::InRange) text = MilesText(distance.NauticalMiles) + " NM" + text;
}

void ScreenTexts::ShowRange(std::int16_t range) {
    form_.Label2.ToolTipText =
        range == 0 ? " Range Disabled " : " Range set at " + std::to_string(range) + " Nautical Miles ";
}

void ScreenTexts::ClearRange() {
    form_.Label2.ToolTipText.clear();
}

void ScreenTexts::ShowElapsed(std::int64_t seconds) {
    form_.Label3.Caption = std::to_string(seconds);
}

void ScreenTexts::ShowGap(std::int16_t seconds) {
    form_.Label4.Caption = std::to_string(seconds);
}

void ScreenTexts::ShowServiceLogo(bool visible) {
    form_.picATCNetVisible = visible;
}

void ScreenTexts::GreyStatusBar() {
    constexpr std::uint32_t Grey = 0xC0C0C0;
    form_.StatusBarColor = Grey;
}

void ScreenTexts::RefreshFeedPanel() {
    Panel& panel = form_[StatusPanel::Feed];
    panel.ToolTipText = feed_text_;
    if (!shown_.Station.empty()) panel.ToolTipText += "\r\n" + shown_.Station;
    if (shown_.Condition.NotEncrypted) panel.ToolTipText.append("\r\n").append(NotEncryptedWords);
    std::string& text = panel.Text = feed_text_;
    if (shown_.Passing.What != NoticeKind::None) text = NoticeText(shown_.Passing);
    if (shown_.Condition.Silence) text = WordsOf(shown_.Condition);
    if (shown_.Link == LinkNews::Looking) text = "Looking for the simulator ...";
    if (shown_.Waiting) text = "Waiting for the simulator ...";
}

} // namespace quillon
