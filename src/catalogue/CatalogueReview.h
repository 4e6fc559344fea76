#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// What a reader of the catalogue's text notices before any address is tried.
struct CatalogueReview {
    /// A line that does not do what its writer may expect.
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
    std::vector<Feed> Feeds; ///< also those behind the line at which the loader ends
};

/// Reviews the whole text of the catalogue. Faulty are lines with one or two "|", at which the loader ends; a
/// frequency that an earlier line states; one that no radio can be tuned to; and one that counts as none
/// because it has not six characters.
CatalogueReview ReviewCatalogue(std::string_view text);

} // namespace quillon
