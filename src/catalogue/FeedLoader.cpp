#include "catalogue/FeedLoader.h"

#include "ports/TextFile.h"
#include "radio/Channel.h"

#include <algorithm>
#include <span>
#include <utility>

namespace quillon {

namespace {

constexpr const char* DuplicateTitle = "Duplicate Frequency";
constexpr std::size_t BoxesOfTheirOwn = 3;

/// "4 more frequencies are duplicated: 118.70, ...", at most twenty of them.
template <typename Duplicates>
std::string ListOf(const Duplicates& duplicates) {
    constexpr std::size_t MostListed = 20;
    const std::size_t listed = std::min(duplicates.size(), MostListed);
    std::string text = std::to_string(duplicates.size()) + " more frequencies are duplicated:\r";
    for (std::size_t i = 0; i < listed; ++i) text.append(i == 0 ? "" : ", ").append(duplicates[i].Frequency);
    const std::size_t rest = duplicates.size() - listed;
    return rest == 0 ? text : text + " and " + std::to_string(rest) + " more";
}

} // namespace

void FeedLoader::LoadList() {
    LoadList(TextVersion());
}

void FeedLoader::LoadList(const TextVersion& version) {
    loaded_ = version;
    Load();
    if (met_faulty_line_ && AskToLeaveOut()) Load();
    tell_(report_);
}

void FeedLoader::Load() {
    met_faulty_line_ = false;
    ListView& list = state_.form.lvwDB;
    // Sorted once at the end: inserting a row into a sorted list moves all rows after it.
    const bool sorted = list.Sorted();
    list.SetSorted(false);
    trap_.RunCommand("LoadList Error", Icon::Critical, [this] { RebuildList(); });
    if (sorted) list.SetSorted(true);
    live_.SetFileServers(FileServersOf(list));
    state_.feed.FeedIcao.clear();
    state_.feed.FeedCity.clear();
    state_.feed.FeedFrequency.clear();
    state_.feed.FeedUrl.clear();
}

void FeedLoader::RebuildList() {
    state_.StartupStep = "Loading Frequencies";
    LoadFrequencies(state_.List1);
    state_.StartupStep = "Loading User Frequencies";
    LoadUserFreq();
    ListView& list = state_.form.lvwDB;
    list.Clear();
    Open();
    const std::string& text = *loaded_.Text;
    list.Reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1, loaded_.Text);
    report_ = {};
    ForEachFeed("Getting Data: ", [this](const FeedLine& feed) { AddFeed(feed); });
    if (FirstListLoad) ShowFirst();
    state_.MessageText.clear();
    state_.StartupStep.clear();
}

/// Stated frequencies have already been taken out of the pool.
void FeedLoader::AddFeed(const FeedLine& feed) {
    const std::string_view frequency = feed.StatesFrequency() ? feed.Freq : TakeLowest(state_.List1);
    if (frequency.empty()) ++report_.WithoutChannel;
    state_.form.lvwDB.Add({feed.ICAO, feed.City, frequency, feed.URL});
}

void FeedLoader::ShowFirst() {
    FirstListLoad = false;
    ListView& list = state_.form.lvwDB;
    list.SortBy(Column::Freq, SortOrder::Ascending);
    const std::vector<FeedRecord>& items = list.Items();
    const auto first = std::find_if(items.begin(), items.end(),
                                    [](const FeedRecord& item) { return item.ICAO.starts_with("CYEE"); });
    if (first == items.end()) return;
    list.Select(static_cast<std::size_t>(first - items.begin()));
    list.EnsureSelectedVisible();
    ++state_.form.ListFocusRequest;
}

void FeedLoader::LoadUserFreq() {
    trap_.RunCommand("Load User Frequency Error", Icon::Critical, [this] {
        CollectUserFreq();
        ReportDuplicates();
    });
}

void FeedLoader::CollectUserFreq() {
    state_.lstUFreq.clear();
    ForEachFeed("Data: ", [this](const FeedLine& feed) {
        if (!feed.StatesFrequency()) return;
        const std::string_view key = FrequencyKey(feed.Freq);
        state_.lstUFreq.emplace_back(key);
        RemFreq(state_.List1, key);
    });
    std::sort(state_.lstUFreq.begin(), state_.lstUFreq.end());
}

/// One for each statement that follows another of the same channel. Where airports share frequencies, only
/// those within one airport count.
std::vector<FeedLoader::Duplicate> FeedLoader::FindDuplicates() {
    std::vector<std::pair<std::string_view, std::string_view>> stated; // frequency and airport
    ForEachFeed("Data: ", [&](const FeedLine& feed) {
        if (feed.StatesFrequency()) stated.emplace_back(FrequencyKey(feed.Freq), feed.ICAO);
    });
    std::sort(stated.begin(), stated.end());
    const bool shared = state_.marks.SharedFrequencies.value_or(false);
    std::vector<Duplicate> duplicates;
    for (std::size_t i = 1; i < stated.size(); ++i) {
        const auto& [frequency, airport] = stated[i];
        const bool same_airport = airport == stated[i - 1].second;
        if (frequency == stated[i - 1].first && (same_airport || !shared))
            duplicates.push_back({frequency, same_airport});
    }
    return duplicates;
}

/// A box for each of the first, and one for all others: there may be thousands.
void FeedLoader::ReportDuplicates() {
    const std::vector<std::string>& frequencies = state_.lstUFreq;
    if (std::adjacent_find(frequencies.begin(), frequencies.end()) == frequencies.end()) return;
    const std::vector<Duplicate> duplicates = FindDuplicates();
    const std::size_t alone = std::min(duplicates.size(), BoxesOfTheirOwn);
    for (std::size_t i = 0; i < alone && !state_.QuitRequested; ++i) {
        state_.MessageText = "Frequency " + std::string(duplicates[i].Frequency) + " is duplicated!\r";
        prompts_.Message(DuplicateTitle, state_.MessageText, Icon::Information);
    }
    if (alone == duplicates.size() || state_.QuitRequested) return;
    state_.MessageText = ListOf(std::span(duplicates).subspan(alone));
    prompts_.Message(DuplicateTitle, state_.MessageText, Icon::Information);
    if (!state_.QuitRequested) AskToShare(duplicates);
}

void FeedLoader::AskToShare(const std::vector<Duplicate>& duplicates) {
    auto& shared = state_.marks.SharedFrequencies;
    const bool several_airports =
        std::any_of(duplicates.begin(), duplicates.end(),
                    [](const Duplicate& duplicate) { return !duplicate.SameAirport; });
    if (shared || !several_airports) return;
    shared = prompts_.Confirm(
        "Shared Frequencies",
        "Many frequencies in your catalogue belong to more than one airport.\r\rAllow airports "
        "to share frequencies? Quillon will then play the nearest airport in range instead of "
        "the first in the list, and stop reporting these duplicates. You can change this "
        "later in the Preferences menu.",
        Choices::YesNo);
    remember_();
}

bool FeedLoader::AskToLeaveOut() {
    auto& skips = state_.marks.SkipFaultyLines;
    if (skips || state_.QuitRequested) return false;
    skips = prompts_.Confirm("Faulty Lines",
                             "A line of your catalogue cannot be read, so the feeds after it are missing.\r\r"
                             "Leave such lines out from now on? Quillon will then load all the others and say "
                             "how many it left out. You can change this later in the Preferences menu.",
                             Choices::YesNo);
    remember_();
    return *skips;
}

void FeedLoader::ForEachFeed(const char* step, const FeedHandler& handler) {
    Open();
    std::string_view rest = *loaded_.Text;
    while (const auto line = TakeLine(rest)) {
        if (!IsFeedLine(*line)) continue;
        try {
            handler(SplitFeedLine(*line));
        } catch (...) { // looked at only now: most lines succeed
            const bool faulty = !IsWholeLine(*line);
            if (faulty && state_.marks.SkipFaultyLines.value_or(false)) {
                ++report_.LinesLeftOut;
                continue;
            }
            met_faulty_line_ |= faulty;
            state_.StartupStep.assign(step).append(*line);
            throw;
        }
    }
}

void FeedLoader::Open() {
    const std::string path = state_.folders.DataPath + CatalogueName;
    state_.StartupStep = "Opening " + path;
    if (!loaded_.Text) loaded_ = ReadVersion(path, page_);
}

} // namespace quillon
