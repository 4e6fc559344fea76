#include "catalogue/CatalogueReview.h"

#include "catalogue/FeedFile.h"
#include "ports/TextFile.h"
#include "radio/Channel.h"
#include "runtime/Number.h"
#include "state/FeedMarkers.h"

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
    explicit Reviewer(const ReviewRules& rules) : rules_(rules) {}

    void Take(std::string_view line) {
        ++number_;
        line_ = line;
        if (!IsFeedLine(line)) return;
        const auto bars = std::count(line.begin(), line.end(), '|');
        if (bars < 3) return Add(std::to_string(bars) + " \"|\" instead of 3: loading ends here");
        const FeedLine feed = SplitFeedLine(line);
        review.Feeds.push_back(
            {number_, std::string(feed.ICAO), std::string(feed.City), std::string(feed.URL)});
        const bool unknown = IsBoundToAPlace(feed) && !rules_.KnowsAirport(feed.ICAO);
        if (unknown) Add("Airport.dat does not know " + Quoted(feed.ICAO) + ": there is no distance to it");
        TakeFrequency(feed, unknown);
    }

    CatalogueReview review;

  private:
    static std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

    static bool IsBoundToAPlace(const FeedLine& feed) {
        return RadioMarker(feed.City) == 0 && PlaylistMarker(feed.URL) == 0;
    }

    void TakeFrequency(const FeedLine& feed, bool unknown_airport) {
        if (feed.Freq.empty()) return;
        const std::string frequency(feed.Freq);
        if (!feed.StatesFrequency())
            return Add(Quoted(frequency) +
                       " does not count: a frequency has six characters, or seven that name a channel");
        if (!CanBeTuned(frequency)) Add("No radio can be tuned to " + Quoted(frequency));
        const std::string key(FrequencyKey(frequency));
        Statements& statements = stated_.try_emplace(key, Statements{number_, {}}).first->second;
        const auto [same, is_new] = statements.by_airport.emplace(feed.ICAO, number_);
        if (!is_new)
            Add(LineHas(same->second, key) + " for the same airport: only one is found");
        else if (statements.first != number_ && !rules_.SharedFrequencies)
            Add(LineHas(statements.first, key) + ": only one is found");
        else if (statements.first != number_ && unknown_airport)
            Add(LineHas(statements.first, key) + ", and without a distance this one is never heard");
    }

    static std::string LineHas(int line, const std::string& frequency) {
        return "Line " + std::to_string(line) + " has " + frequency + " too";
    }

    void Add(std::string reason) { review.Faults.push_back({number_, std::string(line_), std::move(reason)}); }

    const ReviewRules& rules_;
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
    Reviewer reviewer(rules);
    while (const auto line = TakeLine(text)) reviewer.Take(*line);
    return std::move(reviewer.review);
}

} // namespace quillon
