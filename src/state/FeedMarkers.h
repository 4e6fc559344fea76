#pragma once

#include <cstdint>
#include <string_view>

namespace quillon {

// A feed's kind, by its texts: the 1-based position of a mark in them, 0 if the feed is not of that kind.

/// An internet radio station, by its description. Range does not matter to it.
std::int32_t RadioMarker(std::string_view city);

/// A playlist, by its address.
std::int32_t PlaylistMarker(std::string_view url);

/// A live stream, by its address.
std::int32_t StreamMarker(std::string_view url);

/// Whether the feed is heard around an airport; stations and playlists are heard everywhere.
inline bool IsLocal(std::string_view city, std::string_view url) {
    return RadioMarker(city) == 0 && PlaylistMarker(url) == 0;
}

} // namespace quillon
