#include "catalogue/FeedLoader.h"

#include "ports/TextFile.h"
#include "radio/Channel.h"

#include <algorithm>

namespace quillon {

void FeedLoader::LoadList() {
    ListView& list = state_.form.lvwDB;
    // Sorted once at the end: inserting a row into a sorted list moves all rows after it.
    const bool sorted = list.Sorted();
    list.SetSorted(false);
    trap_.Run("LoadList Error", Icon::Critical, [this] { RebuildList(); });
    text_.reset();
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
    ListView& list = state_.form.lvwDB;
    list.Clear();
    Open();
    list.Reserve(static_cast<std::size_t>(std::count(text_->begin(), text_->end(), '\n')) + 1, text_);
    ForEachFeed("Getting Data: ", [this](const FeedLine& feed) { AddFeed(feed); });
    if (FirstListLoad) ShowFirst();
    state_.MessageText.clear();
    state_.StartupStep.clear();
}

/// Stated frequencies have already been taken out of the pool.
void FeedLoader::AddFeed(const FeedLine& feed) {
    state_.form.lvwDB.Add(
        {feed.ICAO, feed.City, feed.StatesFrequency() ? feed.Freq : TakeLowest(state_.List1), feed.URL});
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
    trap_.Run("Load User Frequency Error", Icon::Critical, [this] {
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

void FeedLoader::ReportDuplicates() {
    const std::vector<std::string>& frequencies = state_.lstUFreq;
    for (std::size_t i = 1; i < frequencies.size(); ++i) {
        if (frequencies[i] != frequencies[i - 1]) continue;
        state_.MessageText = "Frequency " + frequencies[i] + " is duplicated!\r";
        prompts_.Message("Duplicate Frequency", state_.MessageText, Icon::Information);
    }
}

void FeedLoader::ForEachFeed(const char* step, const FeedHandler& handler) {
    Open();
    std::string_view rest = *text_;
    while (const auto line = TakeLine(rest)) {
        if (!IsFeedLine(*line)) continue;
        try {
            handler(SplitFeedLine(*line));
        } catch (...) { // set only now: nobody sees the step of a line that succeeds
            state_.StartupStep.assign(step).append(*line);
            throw;
        }
    }
}

void FeedLoader::Open() {
    const std::string path = state_.folders.DataPath + CatalogueName;
    state_.StartupStep = "Opening " + path;
    if (!text_) text_ = std::make_shared<const std::string>(ReadText(path, page_));
}

} // namespace quillon
