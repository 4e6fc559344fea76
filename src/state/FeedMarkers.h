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

} // namespace quillon
