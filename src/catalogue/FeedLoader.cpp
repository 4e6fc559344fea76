#include "catalogue/FeedLoader.h"

#include "catalogue/FrequencyPool.h"
#include "ports/TextFile.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace quillon {

namespace {

/// In the order of their bytes. Most texts differ in the first eight, which are compared as one number.
void SortTexts(std::vector<std::string>& texts) {
    std::vector<std::pair<std::uint64_t, std::string>> keyed;
    keyed.reserve(texts.size());
    for (std::string& text : texts) {
        std::uint64_t key = 0;
        for (std::size_t i = 0; i < sizeof key; ++i)
            key = key << 8U | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
        keyed.emplace_back(key, std::move(text));
    }
    std::sort(keyed.begin(), keyed.end());
    for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = std::move(keyed[i].second);
}

} // namespace

void FeedLoader::LoadList() {
    ListView& list = state_.form.lvwDB;
    // Sorted once at the end: a row's place in a sorted list costs moving all rows behind it.
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
    if (text_) list.Reserve(static_cast<std::size_t>(std::count(text_->begin(), text_->end(), '\n')) + 1);
    ForEachFeed("Getting Data: ", [this](const FeedLine& feed) { AddFeed(feed); });
    if (FirstListLoad) ShowFirst();
    state_.MessageText.clear();
    state_.StartupStep.clear();
}

/// A stated frequency has left the pool by now.
void FeedLoader::AddFeed(const FeedLine& feed) {
    std::string frequency(feed.Freq);
    if (!feed.StatesFrequency()) {
        frequency = LowestFree(state_.List1);
        RemFreq(state_.List1, frequency);
    }
    state_.form.lvwDB.Add(
        {std::string(feed.ICAO), std::string(feed.City), std::move(frequency), std::string(feed.URL)});
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
    ForEachFeed("Data: ", [this](const FeedLine& feed) {
        if (!feed.StatesFrequency()) return;
        state_.lstUFreq.emplace_back(feed.Freq);
        RemFreq(state_.List1, state_.lstUFreq.back());
    });
    SortTexts(state_.lstUFreq);
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
    std::string_view rest = Text();
    while (const auto line = TakeLine(rest)) {
        if (!IsFeedLine(*line)) continue;
        try {
            handler(SplitFeedLine(*line));
        } catch (...) { // only then is the step of any use, and there are many
            state_.StartupStep.assign(step).append(*line);
            throw;
        }
    }
}

const std::string& FeedLoader::Text() {
    const std::string path = state_.folders.DataPath + CatalogueName;
    state_.StartupStep = "Opening " + path;
    if (!text_) text_ = ReadText(path, page_);
    return *text_;
}

} // namespace quillon
