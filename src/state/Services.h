#pragma once

// The live ATC web service and the simulator module. Set these to the real hosts when building a release.

namespace quillon::services {

/// What the addresses of the service's feeds start with; exactly 21 characters.
inline constexpr const char LiveAtcFeedPrefix[] = "http://feeds.example/";
static_assert(sizeof LiveAtcFeedPrefix == 21 + 1);

/// An address that contains one of these shows the service's picture.
inline constexpr const char LiveAtcHost[] = "feeds.example";
inline constexpr const char StreamServer[] = "streams.example:80";

inline constexpr const char LiveAtcHomePage[] = "http://www.feeds.example/";

/// Where the simulator module is to be had.
inline constexpr const char FsuipcDownload[] = "http://www.fsuipc.com";

} // namespace quillon::services
