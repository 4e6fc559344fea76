#pragma once

#include <cstdint>
#include <string>

namespace quillon {

// What a feed's texts tell of its kind: positions counted from 1, 0 for "is none".

/// An internet radio station, by its description; such a feed has no range.
std::int32_t RadioMarker(const std::string& city);

/// A playlist, by its address.
std::int32_t PlaylistMarker(const std::string& url);

/// A live stream, by its address.
std::int32_t StreamMarker(const std::string& url);

} // namespace quillon
