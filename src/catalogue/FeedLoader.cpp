#include "catalogue/FeedLoader.h"

#include "catalogue/FeedFile.h"
#include "catalogue/FrequencyPool.h"
#include "ports/TextFile.h"

#include <algorithm>
#include <utility>

namespace quillon {

void FeedLoader::LoadList() {
    ListView& list = state_.form.lvwDB;
    // Sorted once at the end: a row's place in a sorted list costs moving all rows behind it.
    const bool sorted = list.Sorted();
    list.SetSorted(false);
    trap_.Run("LoadList Error", Icon::Critical, [this] { RebuildList(); });
    if (sorted) list.SetSorted(true);
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
    state_.form.lvwDB.Clear();
    ForEachFeed("Getting Data: ", [this](FeedRecord record) { AddFeed(std::move(record)); });
    if (FirstListLoad) ShowFirst();
    state_.MessageText.clear();
    state_.StartupStep.clear();
}

void FeedLoader::AddFeed(FeedRecord record) {
    if (!StatesFrequency(record)) record.Freq = LowestFree(state_.List1);
    RemFreq(state_.List1, record.Freq);
    state_.form.lvwDB.Add(std::move(record));
}

void FeedLoader::ShowFirst() {
    FirstListLoad = false;
    ListView& list = state_.form.lvwDB;
    list.SetSortKey(Column::Freq);
    list.SetSortOrder(SortOrder::Ascending);
    list.SetSorted(false);
    list.SetSorted(true);
    const std::vector<FeedRecord>& items = list.Items();
    const auto first = std::find_if(items.begin(), items.end(),
                                    [](const FeedRecord& item) { return item.ICAO.starts_with("CYEE"); });
    if (first == items.end()) return;
    list.Select(static_cast<std::size_t>(first - items.begin()));
    list.EnsureSelectedVisible();
    state_.form.lvwDBFocus = true;
}

void FeedLoader::LoadUserFreq() {
    trap_.Run("Load User Frequency Error", Icon::Critical, [this] {
        CollectUserFreq();
        ReportDuplicates();
    });
}

void FeedLoader::CollectUserFreq() {
    state_.lstUFreq.clear();
    ForEachFeed("Data: ", [this](FeedRecord record) {
        if (!StatesFrequency(record)) return;
        RemFreq(state_.List1, record.Freq);
        state_.lstUFreq.push_back(std::move(record.Freq));
    });
    std::sort(state_.lstUFreq.begin(), state_.lstUFreq.end());
}

void FeedLoader::ReportDuplicates() {
    const std::vector<std::string>& frequencies = state_.lstUFreq;
    for (std::size_t i = 1; i < frequencies.size(); ++i) {
        if (frequencies[i] != frequencies[i - 1]) continue;
        state_.MessageText = "Frequency " + frequencies[i] + " is duplicated!\r";
        prompts_.Message("Duplicate Frequency", state_.MessageText, Icon::Information);
    }
}

void FeedLoader::ForEachFeed(const char* step, const FeedHandler& handler) {
    const std::string path = state_.folders.DataPath + CatalogueName;
    state_.StartupStep = "Opening " + path;
    const std::string text = ReadText(path, page_);
    std::string_view rest = text;
    while (const auto line = TakeLine(rest)) {
        state_.StartupStep.assign(step).append(*line);
        if (IsFeedLine(*line)) handler(SplitFeedLine(*line));
    }
}

} // namespace quillon
