#include "catalogue/CatalogueReview.h"

#include "catalogue/FeedFile.h"
#include "ports/TextFile.h"
#include "radio/Channel.h"
#include "runtime/Number.h"

#include <algorithm>
#include <map>

namespace quillon {

namespace {

constexpr double BelowAnyRadio = 118; // MHz
constexpr double AboveAnyRadio = 137;

bool CanBeTuned(const std::string& frequency) {
    if (frequency.size() == 7) return true; // it names a channel
    const auto is_digit = [&](std::size_t at) { return frequency[at] >= '0' && frequency[at] <= '9'; };
    for (const std::size_t at : {0U, 1U, 2U, 4U, 5U})
        if (!is_digit(at)) return false;
    return frequency[3] == '.' && Val(frequency) >= BelowAnyRadio && Val(frequency) < AboveAnyRadio;
}

/// Walks the lines in order.
class Reviewer {
  public:
    void Take(std::string_view line) {
        ++number_;
        line_ = line;
        if (!IsFeedLine(line)) return;
        const auto bars = std::count(line.begin(), line.end(), '|');
        if (bars < 3) return Add(std::to_string(bars) + " \"|\" instead of 3: loading ends here");
        const FeedLine feed = SplitFeedLine(line);
        review.Feeds.push_back(
            {number_, std::string(feed.ICAO), std::string(feed.City), std::string(feed.URL)});
        TakeFrequency(feed);
    }

    CatalogueReview review;

  private:
    void TakeFrequency(const FeedLine& feed) {
        if (feed.Freq.empty()) return;
        const std::string frequency(feed.Freq);
        const std::string shown = "\"" + frequency + "\"";
        if (!feed.StatesFrequency())
            return Add(shown + " is none: a frequency has six characters, or seven that name a channel");
        if (!CanBeTuned(frequency)) Add("No radio can be tuned to " + shown);
        const auto [first, is_new] = stated_.emplace(FrequencyKey(frequency), number_);
        if (!is_new)
            Add("Line " + std::to_string(first->second) + " has " + first->first + " too: only one is found");
    }
    void Add(std::string reason) { review.Faults.push_back({number_, std::string(line_), std::move(reason)}); }

    int number_ = 0;
    std::string_view line_;
    std::map<std::string, int> stated_; // and the line that states it first
};

} // namespace

CatalogueReview ReviewCatalogue(std::string_view text) {
    Reviewer reviewer;
    while (const auto line = TakeLine(text)) reviewer.Take(*line);
    return std::move(reviewer.review);
}

} // namespace quillon
