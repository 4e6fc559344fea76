#pragma once

#include "state/ListView.h"

#include <string_view>

namespace quillon {

inline constexpr const char* CatalogueName = "live_atc_feeds.txt";

/// Whether a line of the catalogue holds a feed: no comment ("//" in front), and a "|" somewhere.
bool IsFeedLine(std::string_view line);

/// Splits a feed's line "ICAO|City|URL|Freq" at its first three "|". Nothing is trimmed; a fourth "|" belongs
/// to the frequency. Raises error 5 when there are fewer than three.
FeedRecord SplitFeedLine(std::string_view line);

/// Whether the line states its frequency. Anything but six characters is none.
bool StatesFrequency(const FeedRecord& record);

} // namespace quillon
