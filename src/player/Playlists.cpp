#include "player/Playlists.h"

#include "player/Address.h"
#include "player/PlainText.h"
#include "runtime/Text.h"
#include "runtime/Trim.h"

#include <algorithm>
#include <charconv>
#include <initializer_list>
#include <map>

namespace quillon {

namespace {

constexpr std::string_view Blanks = " \t\r\n";

bool IsOneOf(std::string_view text, std::initializer_list<std::string_view> list) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

/// Skips an entry with control characters: it is not text.
void Add(Entries& entries, std::string_view entry) {
    entry = Trimmed(entry);
    const bool clean =
        std::none_of(entry.begin(), entry.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; });
    if (!entry.empty() && clean) entries.emplace_back(entry);
}

/// Calls `take` with each non-blank line, trimmed.
template <typename Take>
void ForEachLine(std::string_view text, Take take) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        const std::string_view line = Trimmed(text.substr(0, end));
        if (!line.empty()) take(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

/// The value of `attribute`, quoted either way or not at all; `tag` is the text after the element's name.
std::string AttributeOf(std::string_view tag, std::string_view attribute) {
    while (true) {
        const std::size_t equals = tag.find('=');
        if (equals == tag.npos) return {};
        std::string_view name = Trimmed(tag.substr(0, equals));
        name.remove_prefix(name.find_last_of(" \t\r\n\"'") + 1); // npos + 1 is 0
        tag.remove_prefix(equals + 1);
        tag.remove_prefix(std::min(tag.find_first_not_of(Blanks), tag.size()));
        const bool quoted = tag.starts_with('"') || tag.starts_with('\'');
        const std::string_view ends = quoted ? tag.substr(0, 1) : Blanks;
        if (quoted) tag.remove_prefix(1);
        const std::size_t end = std::min(tag.find_first_of(ends), tag.size());
        if (LCase(name) == attribute) return Unescaped(tag.substr(0, end));
        tag.remove_prefix(std::min(end + 1, tag.size()));
    }
}

/// The position of the first ">" outside quotes, where the tag at the front of `text` ends.
std::size_t TagEnd(std::string_view text) {
    char quote = '\0';
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (quote == '\0' && c == '>') return at;
        if (c == quote)
            quote = '\0';
        else if (quote == '\0' && (c == '"' || c == '\''))
            quote = c;
    }
    return text.size();
}

/// The values of `attribute` in all elements of those names (lower case), except in comments.
Entries AttributesOf(std::string_view text, std::initializer_list<std::string_view> elements,
                     std::string_view attribute) {
    Entries entries;
    for (std::size_t start = 0; (start = text.find('<')) != text.npos;) {
        text.remove_prefix(start + 1);
        const bool comment = text.starts_with("!--");
        const std::size_t end = std::min(comment ? text.find("-->") : TagEnd(text), text.size());
        std::string_view tag = text.substr(0, end);
        const std::size_t name_end = std::min(tag.find_first_of(" \t\r\n/"), tag.size());
        if (!comment && IsOneOf(LCase(tag.substr(0, name_end)), elements)) {
            tag.remove_prefix(name_end);
            if (tag.ends_with('/')) tag.remove_suffix(1);
            Add(entries, AttributeOf(tag, attribute));
        }
        text.remove_prefix(end);
    }
    return entries;
}

std::string Decoded(std::string_view text) {
    std::string decoded;
    while (!text.empty()) {
        unsigned byte = 0;
        const char* const digits = text.data() + 1;
        const bool escaped = text.front() == '%' && text.size() > 2 &&
                             std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
        decoded += escaped ? static_cast<char>(static_cast<unsigned char>(byte)) : text.front();
        text.remove_prefix(escaped ? 3 : 1);
    }
    return decoded;
}

/// The path of a "file:" address: "C:/x" of "file:///C:/x", "\\host\share" of "file://host/share".
std::string PathOfFileAddress(std::string_view address) {
    constexpr std::string_view ThisMachine = "localhost/";
    address.remove_prefix(std::string_view("file://").size());
    if (LCase(address.substr(0, ThisMachine.size())) == ThisMachine)
        address.remove_prefix(ThisMachine.size() - 1);
    const std::string path = Decoded(address);
    const bool begins_with_slash = path.starts_with('/') || path.starts_with('\\');
    if (begins_with_slash && path.find(':') == 2) return path.substr(1);
    const bool has_host = !path.empty() && !begins_with_slash && path.find(':') != 1;
    return has_host ? "\\\\" + path : path;
}

bool IsRooted(std::string_view path) {
    return path.starts_with('\\') || path.starts_with('/') || path.find(':') == 1;
}

} // namespace

Entries M3uEntries(std::string_view text) {
    Entries entries;
    ForEachLine(text, [&](std::string_view line) {
        if (!line.starts_with('#')) Add(entries, line);
    });
    return entries;
}

Entries PlsEntries(std::string_view text) {
    static constexpr std::string_view FileKey = "file";
    std::map<unsigned, std::string_view> numbered;
    ForEachLine(text, [&](std::string_view line) {
        const std::size_t equals = line.find('=');
        if (equals == line.npos || LCase(line.substr(0, FileKey.size())) != FileKey) return;
        const std::string_view name = Trimmed(line.substr(0, equals));
        unsigned number = 0;
        const char* const end = name.data() + name.size();
        if (std::from_chars(name.data() + FileKey.size(), end, number).ptr == end)
            numbered.emplace(number, line.substr(equals + 1));
    });
    Entries entries;
    for (const auto& [number, entry] : numbered) Add(entries, entry);
    return entries;
}

Entries AsxEntries(std::string_view text) {
    return AttributesOf(text, {"ref", "entryref"}, "href");
}

Entries WplEntries(std::string_view text) {
    return AttributesOf(text, {"media"}, "src");
}

Entries XspfEntries(std::string_view text) {
    constexpr std::string_view Location = "<location>";
    Entries entries;
    std::string lower(text); // LCase may change the length
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    std::size_t at = lower.find("<tracklist"); // the list has a location of its own in front of it
    while (at != lower.npos && (at = lower.find('<', at)) != lower.npos) {
        const std::string_view rest = std::string_view(lower).substr(at);
        const bool comment = rest.starts_with("<!--");
        const std::size_t start = at + (rest.starts_with(Location) ? Location.size() : 1);
        at = comment ? lower.find("-->", at) : start;
        if (!rest.starts_with(Location)) continue;
        at = std::min(lower.find('<', start), lower.size());
        Add(entries, Unescaped(text.substr(start, at - start)));
    }
    return entries;
}

Entries ReadPlaylist(std::string_view bytes, std::string_view name) {
    const std::string text = PlainText(bytes);
    const std::string front = LCase(std::string_view(text).substr(0, 1024));
    const std::string file = LowerCasePath(name);
    const auto has = [&](std::string_view mark) { return front.find(mark) != front.npos; };
    if (has("#extm3u")) return M3uEntries(text);
    if (has("[playlist]")) return PlsEntries(text);
    if (has("<asx")) return AsxEntries(text);
    if (has("<playlist") && has("xspf")) return XspfEntries(text);
    if (has("<?wpl") || has("<smil")) return WplEntries(text);
    if (file.ends_with(".pls")) return PlsEntries(text);
    if (file.ends_with(".asx") || file.ends_with(".wax")) return AsxEntries(text);
    if (file.ends_with(".wpl")) return WplEntries(text);
    if (file.ends_with(".xspf")) return XspfEntries(text);
    return Trimmed(text).starts_with('<') ? Entries() : M3uEntries(text);
}

std::optional<std::string> ResolveEntry(std::string_view from, std::string_view entry) {
    if (IsStreamAddress(from)) {
        const auto base = ParseAddress(from);
        const auto address = base ? ResolveLocation(*base, entry) : std::nullopt;
        return address ? std::optional(AddressText(*address)) : std::nullopt;
    }
    if (LCase(entry.substr(0, 7)) == "file://") return PathOfFileAddress(entry);
    if (IsStreamAddress(entry) || IsRooted(entry)) return std::string(entry);
    return std::string(from.substr(0, from.find_last_of("\\/") + 1)).append(entry); // npos + 1 is 0
}

} // namespace quillon
