#pragma once

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

/// Reviews the whole text of the catalogue. Faulty are lines with only one or two "|", which stop the loader,
/// and frequencies that an earlier line states, that no radio can be tuned to, or that do not count because
/// they do not have six characters, or seven that name a channel.
CatalogueReview ReviewCatalogue(std::string_view text);

} // namespace quillon
