#include "state/FeedMarkers.h"

#include "runtime/Text.h"

namespace quillon {

std::int32_t RadioMarker(std::string_view city) {
    return static_cast<std::int32_t>(InStr(LCase(city), "radio"));
}

std::int32_t PlaylistMarker(std::string_view url) {
    return static_cast<std::int32_t>(InStr(LCase(url), ".wpl"));
}

std::int32_t StreamMarker(std::string_view url) {
    const std::ptrdiff_t http = InStr(url, "http://");
    return static_cast<std::int32_t>(http > 0 ? http : InStr(url, "https://"));
}

} // namespace quillon
