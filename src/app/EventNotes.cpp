#include "app/EventNotes.h"

#include "playback/ScreenTexts.h"

namespace quillon {

namespace {

std::string LinkText(const ProgramState& state) {
    if (state.shown.Link == LinkNews::Looking) return "looking for the simulator";
    return state.radio.SimConnected && !state.radio.NoConnection ? "connected" : "";
}

std::string FeedText(const FeedState& feed) {
    if (feed.FeedUrl.empty()) return "";
    return feed.FeedIcao + " - " + feed.FeedCity + " (" + feed.FeedFrequency + ") " + feed.FeedUrl;
}

/// Without seconds, which change all the time.
std::string PlayerText(const ShownValues& shown) {
    const std::string reason = WordsOf(shown.Condition.Silence);
    return NameOf(shown.Status.What) + (reason.empty() ? "" : ": " + reason);
}

std::string RadioText(const RadioState& radio) {
    return IsSentinel(radio.MasterFrequency) ? "" : radio.MasterFrequency;
}

} // namespace

void EventNotes::NoteCommand(std::string_view menu_text) {
    std::string name(menu_text.substr(0, menu_text.find('\t')));
    std::erase(name, '&');
    if (!name.empty()) log_.Add("Command: " + name);
}

void EventNotes::Follow() {
    constexpr const char* Names[] = {"Link", "Mode", "Radio", "Feed", "Player", "Station"};
    const std::array<std::string, 6> now{
        LinkText(state_),         state_.cycle.optManual() ? "manual" : "automatic",
        RadioText(state_.radio),  FeedText(state_.feed),
        PlayerText(state_.shown), state_.shown.Station};
    for (std::size_t i = 0; i < now.size(); ++i)
        if (now[i] != noted_[i]) log_.Add(std::string(Names[i]) + ": " + (now[i].empty() ? "none" : now[i]));
    noted_ = now;
}

} // namespace quillon
