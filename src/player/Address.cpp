#include "player/Address.h"

#include "runtime/Text.h"
#include "runtime/Trim.h"

#include <algorithm>
#include <charconv>
#include <vector>

namespace quillon {

namespace {

constexpr std::string_view HttpScheme = "http://";
constexpr std::string_view HttpsScheme = "https://";
constexpr std::uint16_t HttpPort = 80;
constexpr std::uint16_t HttpsPort = 443;
constexpr std::size_t LongestUserAgent = 200;

bool IsPlain(char c) {
    return c > ' ' && c < '\x7F';
}

/// Brackets are excluded: they would be read back as the ends of a literal address.
bool IsHostCharacter(char c) {
    return static_cast<unsigned char>(c) > ' ' && c != '[' && c != ']';
}

/// Splits `text` before the first of `marks` and returns the part in front, leaving the rest in `text`.
std::string_view CutAtFirstOf(std::string_view& text, std::string_view marks) {
    const std::size_t at = std::min(text.find_first_of(marks), text.size());
    const std::string_view front = text.substr(0, at);
    text.remove_prefix(at);
    return front;
}

/// Percent-encodes all but visible ASCII characters: a blank would end the target in the request line.
std::string Encoded(std::string_view target) {
    static constexpr char Digits[] = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : target) {
        if (IsPlain(c)) {
            encoded += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            encoded += {'%', Digits[byte >> 4U], Digits[byte & 15U]};
        }
    }
    return encoded;
}

std::optional<std::uint16_t> ParsePort(std::string_view text) {
    std::uint16_t port = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
    if (error != std::errc{} || end != text.data() + text.size() || port == 0) return {};
    return port;
}

bool ParseAuthority(std::string_view authority, StreamAddress& address) {
    authority.remove_prefix(authority.rfind('@') + 1); // npos + 1 is 0
    const bool bracketed = authority.starts_with('[');
    if (bracketed) authority.remove_prefix(1);
    address.host = CutAtFirstOf(authority, bracketed ? "]" : ":");
    if (bracketed) {
        if (authority.empty()) return false;
        authority.remove_prefix(1);
    }
    if (address.host.empty() || !std::all_of(address.host.begin(), address.host.end(), IsHostCharacter))
        return false;
    if (authority.empty() || authority == ":") return true;
    const auto port = authority.starts_with(':') ? ParsePort(authority.substr(1)) : std::nullopt;
    address.port = port.value_or(0);
    return port.has_value();
}

/// Removes "." and ".." segments from an absolute path.
std::string Normalised(std::string_view path) {
    std::vector<std::string_view> parts;
    bool is_folder = true;
    while (!path.empty()) {
        path.remove_prefix(1); // the slash
        const std::string_view part = CutAtFirstOf(path, "/");
        is_folder = part.empty() || part == "." || part == "..";
        if (part == ".." && !parts.empty()) parts.pop_back();
        if (part != "." && part != ".." && !(part.empty() && path.empty())) parts.push_back(part);
    }
    std::string result;
    for (const std::string_view part : parts) result.append("/").append(part);
    return is_folder ? result + "/" : result;
}

/// A scheme ends at a colon that comes before any slash.
bool HasScheme(std::string_view text) {
    const std::string_view front = CutAtFirstOf(text, ":/?#");
    return text.starts_with(':') && !front.empty();
}

/// "host[:port]", as in an address and in the Host header.
std::string HostText(const StreamAddress& address) {
    const bool literal = address.host.find(':') != std::string::npos;
    std::string host = literal ? "[" + address.host + "]" : address.host;
    if (address.port == (address.secure ? HttpsPort : HttpPort)) return host;
    return host + ":" + std::to_string(address.port);
}

} // namespace

bool IsStreamAddress(std::string_view text) {
    return text.find("://") != std::string_view::npos;
}

bool IsMediaProtocol(std::string_view text) {
    const std::string scheme = LCase(text.substr(0, std::min(text.find("://"), text.size())));
    return scheme.size() < text.size() && (scheme.starts_with("mms") || scheme.starts_with("rtsp"));
}

std::string LowerCasePath(std::string_view name) {
    return LCase(name.substr(0, name.find_first_of("?#")));
}

std::optional<StreamAddress> ParseAddress(std::string_view text) {
    text = Trimmed(text);
    StreamAddress address;
    address.secure = LCase(text.substr(0, HttpsScheme.size())) == HttpsScheme;
    address.port = address.secure ? HttpsPort : HttpPort;
    const std::string_view scheme = address.secure ? HttpsScheme : HttpScheme;
    if (LCase(text.substr(0, scheme.size())) != scheme) return {};
    text.remove_prefix(scheme.size());
    if (!ParseAuthority(CutAtFirstOf(text, "/?#"), address)) return {};
    address.target = Encoded(CutAtFirstOf(text, "#"));
    if (!address.target.starts_with('/')) address.target.insert(0, "/");
    return address;
}

std::optional<StreamAddress> ResolveLocation(const StreamAddress& from, std::string_view location) {
    location = Trimmed(location);
    if (HasScheme(location)) return ParseAddress(location);
    if (location.starts_with("//"))
        return ParseAddress((from.secure ? "https:" : "http:") + std::string(location));
    std::string_view base = from.target;
    base = CutAtFirstOf(base, "?");
    std::string_view query = location = CutAtFirstOf(location, "#");
    const std::string_view path = CutAtFirstOf(query, "?");
    StreamAddress address = from;
    if (path.empty()) {
        address.target = std::string(base);
    } else {
        const std::string_view folder = path.starts_with('/') ? "" : base.substr(0, base.rfind('/') + 1);
        address.target = Normalised(std::string(folder).append(Encoded(path)));
    }
    address.target += Encoded(query);
    return address;
}

std::string AddressText(const StreamAddress& address) {
    return std::string(address.secure ? HttpsScheme : HttpScheme) + HostText(address) + address.target;
}

std::string RequestText(const StreamAddress& address, std::string_view user_agent) {
    return "GET " + address.target + " HTTP/1.0\r\nHost: " + HostText(address) +
           "\r\nUser-Agent: " + std::string(user_agent) +
           "\r\nAccept: audio/mpeg, audio/*;q=0.9, */*;q=0.1\r\nIcy-MetaData: 1\r\nConnection: close\r\n\r\n";
}

bool IsUserAgent(std::string_view text) {
    return !text.empty() && text.size() <= LongestUserAgent &&
           std::all_of(text.begin(), text.end(), [](char c) { return c == ' ' || IsPlain(c); });
}

} // namespace quillon
