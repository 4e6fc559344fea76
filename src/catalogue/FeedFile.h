#pragma once

#include <string_view>

namespace quillon {

inline constexpr const char* CatalogueName = "live_atc_feeds.txt";
inline constexpr const char* BackupName = "live_atc_feeds.bak";
inline constexpr const char* ReplacedName = "live_atc_feeds.old"; ///< what the backup has replaced

/// Whether a line of the catalogue holds a feed: it does not start with "//" and contains a "|".
bool IsFeedLine(std::string_view line);

/// Whether a feed's line has all of its "|".
bool IsWholeLine(std::string_view line);

/// The fields of a feed's line, which must outlive them.
struct FeedLine {
    std::string_view ICAO;
    std::string_view City;
    std::string_view URL;
    std::string_view Freq;

    /// Whether the line states its frequency, which must have six characters to count, or seven that name a
    /// channel: "118.305".
    bool StatesFrequency() const;
};

/// Splits a feed's line "ICAO|City|URL|Freq" at its first three "|". Nothing is trimmed; a fourth "|" belongs
/// to the frequency. Raises error 5 when there are fewer than three.
FeedLine SplitFeedLine(std::string_view line);

} // namespace quillon
