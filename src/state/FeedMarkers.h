#pragma once

#include <cstdint>
#include <string_view>

namespace quillon {

// What a feed's texts tell of its kind: positions counted from 1, 0 for "is none".

/// An internet radio station, by its description; such a feed has no range.
std::int32_t RadioMarker(std::string_view city);

/// A playlist, by its address.
std::int32_t PlaylistMarker(std::string_view url);

/// A live stream, by its address.
std::int32_t StreamMarker(std::string_view url);

} // namespace quillon
