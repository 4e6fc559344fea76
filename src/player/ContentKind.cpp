#include "player/ContentKind.h"

#include "player/Address.h"
#include "ports/TextFile.h"
#include "runtime/Text.h"

#include <algorithm>
#include <initializer_list>
#include <string>

namespace quillon {

namespace {

constexpr std::size_t MarkLength = 4; // shorter ones would be found in sound that is joined in its middle

constexpr auto PlaylistMarks = {"#ext", "[pla", "<asx", "<?wp", "<?xm", "<smi"};
constexpr auto WebPageMarks = {"<htm", "<!do"};
constexpr auto PlaylistNames = {".m3u", ".m3u8", ".pls", ".asx", ".wax", ".wpl"};
constexpr auto PlaylistTypes = {"mpegurl", "scpls", "pls+xml", "ms-asf", "ms-asx", "ms-wax", "ms-wpl"};
constexpr auto VagueTypes = {"", "application/octet-stream", "text/plain", "text/xml", "application/xml"};

bool IsAny(std::string_view text, std::initializer_list<const char*> list) {
    return std::any_of(list.begin(), list.end(), [&](const char* one) { return text == one; });
}

/// The text behind a byte-order mark and white space.
std::string_view Content(std::string_view text) {
    text = SkipByteOrderMark(text);
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    return text;
}

bool StartsLikeSound(ByteView first) {
    return first[0] == 0xFF || (first[0] == 'I' && first[1] == 'D' && first[2] == '3');
}

} // namespace

ContentKind KindOf(ByteView first, bool promised) {
    const std::string_view text = Content({reinterpret_cast<const char*>(first.data()), first.size()});
    if (text.size() < MarkLength) return ContentKind::Unknown;
    if (text.starts_with("RIFF")) return ContentKind::Wav;
    const std::string mark = LCase(text.substr(0, MarkLength));
    if (IsAny(mark, PlaylistMarks)) return ContentKind::Playlist;
    if (IsAny(mark, WebPageMarks)) return ContentKind::WebPage;
    return promised && !StartsLikeSound(first) ? ContentKind::Playlist : ContentKind::Mp3;
}

bool AnnouncesPlaylist(std::string_view content_type, std::string_view name) {
    if (!IsAny(content_type, VagueTypes))
        return std::any_of(PlaylistTypes.begin(), PlaylistTypes.end(),
                           [&](const char* type) { return content_type.ends_with(type); });
    const std::string file = LowerCasePath(name);
    return std::any_of(PlaylistNames.begin(), PlaylistNames.end(),
                       [&](const char* ending) { return file.ends_with(ending); });
}

} // namespace quillon
