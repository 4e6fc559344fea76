#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// The parts of a stream's address.
struct StreamAddress {
    std::string host; ///< a name, or a literal address without brackets
    std::uint16_t port = 80;
    std::string target = "/"; ///< path and query, encoded for a request line
    bool secure = false;      ///< https

    bool operator==(const StreamAddress&) const = default;
};

/// Whether the text is an address on the network rather than a file's path.
bool IsStreamAddress(std::string_view text);

/// Whether the address is of a protocol for sound that Quillon does not speak, but other players do.
bool IsMediaProtocol(std::string_view text);

/// An address or a file's path in lower case, without query and fragment: its ending tells the format.
std::string LowerCasePath(std::string_view name);

/// Reads "http://[user@]host[:port][/path]" or the same with https; a host with colons is put in brackets.
/// Returns nothing for another scheme, a missing host, or a port outside 1 to 65535.
std::optional<StreamAddress> ParseAddress(std::string_view text);

/// Resolves a Location header, absolute or relative, against the address it came from. Returns nothing if it
/// leads to anything but http or https.
std::optional<StreamAddress> ResolveLocation(const StreamAddress& from, std::string_view location);

/// The address as text that ParseAddress reads.
std::string AddressText(const StreamAddress& address);

/// The request for the stream. It uses HTTP/1.0, so that the body comes unchunked, and asks for ICY metadata.
/// `user_agent` must satisfy IsUserAgent.
std::string RequestText(const StreamAddress& address, std::string_view user_agent);

/// Whether the text may be sent as the User-Agent header: 1 to 200 visible ASCII characters and blanks.
bool IsUserAgent(std::string_view text);

} // namespace quillon
