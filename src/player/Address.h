#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// Where a stream is to be had.
struct StreamAddress {
    std::string host; ///< a name, or a literal address without brackets
    std::uint16_t port = 80;
    std::string target = "/"; ///< path and query, fit for a request line
    bool secure = false;      ///< https

    bool operator==(const StreamAddress&) const = default;
};

/// Whether the text names something on the network rather than a file.
bool IsStreamAddress(std::string_view text);

/// An address or a file's path in lower case, without query and fragment: its ending tells the format.
std::string LowerCasePath(std::string_view name);

/// Reads "http://[user@]host[:port][/path]" or the same with https; a host with colons stands in brackets.
/// Nothing for another scheme, no host, or a port outside 1 to 65535.
std::optional<StreamAddress> ParseAddress(std::string_view text);

/// Where a reply from `from` sends its caller: the Location may be a whole address or any part of one. Nothing
/// when it leads away from http and https.
std::optional<StreamAddress> ResolveLocation(const StreamAddress& from, std::string_view location);

/// The address as text that ParseAddress reads.
std::string AddressText(const StreamAddress& address);

/// The request for the stream. It asks for version 1.0 of the protocol, whose replies carry the body as it is,
/// and for the titles that come between the sound. `user_agent` is to be fit for a header.
std::string RequestText(const StreamAddress& address, std::string_view user_agent);

/// Whether a text may stand for the program in a request: 1 to 200 visible ASCII characters and blanks, which
/// cannot end the line.
bool IsUserAgent(std::string_view text);

} // namespace quillon
