#include "catalogue/CatalogueReview.h"

#include "catalogue/FeedFile.h"
#include "ports/TextFile.h"
#include "radio/Channel.h"
#include "runtime/Number.h"
#include "state/FeedMarkers.h"
#include "state/FrequencyPool.h"

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

FrequencyPool FreeChannels(std::string_view text) {
    FrequencyPool free;
    LoadFrequencies(free);
    while (const auto line = TakeLine(text)) {
        if (!IsFeedLine(*line) || !IsWholeLine(*line)) continue;
        const FeedLine feed = SplitFeedLine(*line);
        if (feed.StatesFrequency()) RemFreq(free, FrequencyKey(feed.Freq));
    }
    return free;
}

/// Walks the lines in order.
class Reviewer {
  public:
    /// `free` are the channels that no line states.
    Reviewer(const ReviewRules& rules, const FrequencyPool& free) : rules_(rules), free_(free) {}

    void Take(std::string_view line) {
        ++number_;
        line_ = line;
        if (!IsFeedLine(line)) return;
        if (!IsWholeLine(line)) return AddFaultyLine();
        const FeedLine feed = SplitFeedLine(line);
        review.Feeds.push_back(
            {number_, std::string(feed.ICAO), std::string(feed.City), std::string(feed.URL)});
        TakeFrequency(feed, !HasPosition(feed));
        if (!feed.StatesFrequency() && TakeLowest(free_).empty())
            Add("No free channel is left for it: state a frequency, or it can never be tuned");
    }

    CatalogueReview review;

  private:
    static std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

    /// Whether the feed's airport has one, if the feed needs it.
    bool HasPosition(const FeedLine& feed) {
        const AirportEntry entry =
            IsLocal(feed.City, feed.URL) ? rules_.EntryOf(feed.ICAO) : AirportEntry::Complete;
        if (entry == AirportEntry::Complete) return true;
        const bool is_missing = entry == AirportEntry::Missing;
        Add(Quoted(feed.ICAO) + (is_missing ? " is not in Airport.dat" : " has no position in Airport.dat") +
            ", so its distance is unknown");
        return false;
    }

    void AddFaultyLine() {
        const auto bars = std::count(line_.begin(), line_.end(), '|');
        Add("Only " + std::to_string(bars) +
            " \"|\" instead of 3: " + (rules_.SkipFaultyLines ? "left out" : "the list stops here"));
    }

    void TakeFrequency(const FeedLine& feed, bool airport_unknown) {
        if (feed.Freq.empty()) return;
        const std::string frequency(feed.Freq);
        if (!feed.StatesFrequency())
            return Add(Quoted(frequency) + (frequency.size() == 7
                                                ? " is ignored: it is not a channel (118.305 is one)"
                                                : " is ignored: write 118.70, or a channel such as 118.305"));
        if (!CanBeTuned(frequency)) Add("No radio can tune " + Quoted(frequency));
        const std::string key(FrequencyKey(frequency));
        Statements& statements = stated_.try_emplace(key, Statements{number_, {}}).first->second;
        const auto [same, is_new] = statements.by_airport.emplace(feed.ICAO, number_);
        if (!is_new)
            Add(LineHas(same->second, key) + " for the same airport: only one of them will play");
        else if (statements.first != number_ && !rules_.SharedFrequencies)
            Add(LineHas(statements.first, key) + ": only one of them will play");
        else if (statements.first != number_ && airport_unknown)
            Add(LineHas(statements.first, key) + "; without a known airport this feed is never played");
    }

    static std::string LineHas(int line, const std::string& frequency) {
        return frequency + " is also on line " + std::to_string(line);
    }

    void Add(std::string reason) { review.Faults.push_back({number_, std::string(line_), std::move(reason)}); }

    const ReviewRules& rules_;
    FrequencyPool free_;
    int number_ = 0;
    std::string_view line_;
    /// The lines that state a frequency.
    struct Statements {
        int first;
        std::map<std::string, int, std::less<>> by_airport; // the first of each
    };
    std::map<std::string, Statements> stated_;
};

} // namespace

CatalogueReview ReviewCatalogue(std::string_view text, const ReviewRules& rules) {
    Reviewer reviewer(rules, FreeChannels(text));
    while (const auto line = TakeLine(text)) reviewer.Take(*line);
    return std::move(reviewer.review);
}

} // namespace quillon
