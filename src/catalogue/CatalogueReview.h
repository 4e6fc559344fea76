#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// What can be said of the catalogue's text before any address is tried.
struct CatalogueReview {
    /// A line that does not do what its author probably expects.
    struct FaultyLine {
        int Number; ///< from 1
        std::string Text;
        std::string Reason;
    };
    struct Feed {
        int Line;
        std::string ICAO;
        std::string City;
        std::string URL;
    };

    std::vector<FaultyLine> Faults;
    std::vector<Feed> Feeds; ///< also those after a line that stops the loader
};

/// What the airport file has of an airport.
enum class AirportEntry { Missing, WithoutPosition, Complete };

/// What a review goes by.
struct ReviewRules {
    bool SharedFrequencies = false; ///< each airport may have each frequency
    bool SkipFaultyLines = false;   ///< loading goes on behind them
    std::function<AirportEntry(std::string_view icao)> EntryOf = [](auto) { return AirportEntry::Complete; };
};

/// Reviews the whole text of the catalogue. Faulty are lines with only one or two "|", which stop the loader
/// unless it skips them; feeds without a frequency for which no channel is left;
/// airports without an entry or a position in it; and frequencies that an earlier line of the same airport
/// states, or where they are not shared of any; that no radio can be tuned to; or that do not count because
/// they do not have six characters, or seven that name a channel.
CatalogueReview ReviewCatalogue(std::string_view text, const ReviewRules& rules = {});

} // namespace quillon
