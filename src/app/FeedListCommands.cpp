#include "app/FeedListCommands.h"

#include "playback/CurrentFeed.h"
#include "radio/Channel.h"
#include "runtime/Text.h"

namespace quillon {

namespace {

/// A feed's frequency as the followed radio will show it.
std::string ShownFrequency(const std::string& frequency, const RadioState& radio) {
    const auto channel = Channel::Named(frequency);
    return channel && radio.ReadInHertz ? channel->Text() : std::string(FrequencyKey(frequency));
}

} // namespace

void FeedListCommands::lvwDB_ColumnClick(Column column) {
    ListView& list = state_.form.lvwDB;
    if (!list.Sorted())
        list.SetSorted(true); // by ICAO first, which then orders rows that are equal in the column
    const bool flips = column == last_clicked_;
    const bool descends = (list.Order() == SortOrder::Descending) != flips;
    list.SortBy(column, descends ? SortOrder::Descending : SortOrder::Ascending);
    last_clicked_ = column;
}

void FeedListCommands::lvwDB_ItemClick() {
    state_.form.lvwDB.ClearLastSearch();
    ClickListView();
}

void FeedListCommands::mnuSearch_Click() {
    ListView& list = state_.form.lvwDB;
    list.SortBy(Column::ICAO, list.Order());
    const std::string answer = UCase(prompts_.InputBox("Quillon", "Please Enter ICAO", ""));
    if (!answer.empty()) Search(Kind::Icao, answer, 0);
}

void FeedListCommands::mnuCitySearch_Click() {
    const std::string answer = prompts_.InputBox("Quillon", "Please Enter City", "");
    if (!answer.empty()) Search(Kind::City, answer, 0);
}

void FeedListCommands::SearchAgain() {
    if (last_text_.empty())
        mnuSearch_Click();
    else
        Search(last_kind_, last_text_, static_cast<std::size_t>(state_.form.lvwDB.LastSearchIndex()));
}

void FeedListCommands::Search(Kind kind, std::string text, std::size_t start) {
    last_kind_ = kind;
    last_text_ = std::move(text);
    const auto row = Find(kind, last_text_, start);
    state_.form.lvwDB.ClearLastSearch();
    if (row)
        ShowHit(*row, last_text_);
    else
        prompts_.Message("*NOT FOUND*", last_text_ + " not found!\rPlease revise your search",
                         Icon::Information);
}

std::optional<std::size_t> FeedListCommands::Find(Kind kind, const std::string& text, std::size_t start) const {
    const auto& items = state_.form.lvwDB.Items();
    const std::string wanted = LCase(text);
    for (std::size_t step = 0; step < items.size(); ++step) {
        const std::size_t row = (start + step) % items.size();
        const bool hit = kind == Kind::Icao ? LCase(items[row].ICAO).starts_with(wanted)
                                            : LCase(items[row].City).find(wanted) != std::string::npos;
        if (hit) return row;
    }
    return std::nullopt;
}

void FeedListCommands::ShowHit(std::size_t row, const std::string& text) {
    ListView& list = state_.form.lvwDB;
    list.Select(row);
    list.MarkSearchHit(row);
    list.EnsureSelectedVisible();
    state_.LastSearchText = text;
    ClickListView();
}

void FeedListCommands::ClickListView() {
    trap_.RunCommand("Set Feed Errors", Icon::Exclamation, [this] {
        state_.StartupStep = "Set Feed Details";
        const auto selected = state_.form.lvwDB.Selected();
        if (state_.cycle.optManual() && selected) PickSelectedFeed(state_.form.lvwDB.Items()[*selected]);
        state_.StartupStep.clear();
    });
}

void FeedListCommands::PickSelectedFeed(const FeedRecord& picked) {
    EmptyPlayer(player_);
    state_.radio.PreviousFrequency = HandPickedFrequency;
    // The previous pick's frequency: it only has to differ from the sentinel.
    state_.radio.MasterFrequency = state_.feed.FeedFrequency;
    MakeCurrent(state_, texts_, picked);
    state_.chatter.FirstPick = true;
    if (state_.feed.WplMarker == 0) state_.feed.FeedUrlMarker = std::to_string(InStr(picked.URL, "//"));
    if (state_.feed.FeedUrlMarker != "0") {
        PutInCharge(state_.cycle, ManualMonitoringCycle);
        return;
    }
    state_.StartupStep = "Adding Wave Files";
    bag_.Fill(state_.feed.FeedUrl);
    PutInCharge(state_.cycle, ManualChatterCycle);
}

void FeedListCommands::lvwDB_DblClick(bool control) {
    if (control) TuneFeed();
}

void FeedListCommands::CopyAddress() {
    const auto selected = state_.form.lvwDB.Selected();
    if (selected) shell_.CopyText(std::string(state_.form.lvwDB.Items()[*selected].URL));
}

void FeedListCommands::TuneFeed() {
    if (state_.cycle.optManual()) return;
    trap_.RunCommand("Set Feed Errors", Icon::Exclamation, [this] {
        state_.StartupStep = "Set Feed Details";
        TuneToSelectedFeed();
        state_.StartupStep.clear();
    });
}

/// The radio may be on the channel already, so only a new search finds the feed.
void FeedListCommands::PreferOnItsChannel(const FeedRecord& picked) {
    state_.feed.Picked = {std::string(picked.ICAO), std::string(picked.Freq), std::string(picked.URL)};
    if (IsCurrent(state_.feed, picked)) return;
    state_.cycle.ForceRetune = true;
    if (state_.cycle.Timer(AutomaticChatterCycle).Enabled) PutInCharge(state_.cycle, AutomaticTuningCycle);
}

void FeedListCommands::TuneToSelectedFeed() {
    const auto selected = state_.form.lvwDB.Selected();
    if (!selected) return;
    const FeedRecord& picked = state_.form.lvwDB.Items()[*selected];
    state_.radio.PreviousFrequency = HandPickedFrequency;
    state_.radio.MasterFrequency = state_.feed.FeedFrequency;
    if (state_.marks.SharedFrequencies.value_or(false)) PreferOnItsChannel(picked);
    if (!IsCurrent(state_.feed, picked))
        MakeCurrent(state_, texts_, picked); // need not stop if it already plays
    const std::string frequency = state_.feed.FeedFrequency;
    texts_.ShowFrequency(ShownFrequency(frequency, state_.radio));
    tuning_.Write_FSUIPC(frequency, [this, frequency] { tuning_check_.Begin(frequency); });
}

} // namespace quillon
