#include "player/ContentKind.h"

#include "player/Address.h"
#include "ports/TextFile.h"
#include "runtime/Text.h"

#include <algorithm>
#include <initializer_list>
#include <string>

namespace quillon {

namespace {

constexpr std::size_t SignatureLength = 4; // shorter ones occur by chance in a stream joined midway

constexpr auto PlaylistSignatures = {"#ext", "[pla", "<asx", "<?wp", "<?xm", "<smi", "<pla"};
constexpr auto WebPageSignatures = {"<htm", "<!do"};
constexpr auto PlaylistNames = {".m3u", ".m3u8", ".pls", ".asx", ".wax", ".wpl", ".xspf"};
constexpr auto PlaylistTypes = {"mpegurl", "scpls",  "pls+xml", "ms-asf",
                                "ms-asx",  "ms-wax", "ms-wpl",  "xspf+xml"};
constexpr auto GenericTypes = {"", "application/octet-stream", "text/plain", "text/xml", "application/xml"};

bool IsAny(std::string_view text, std::initializer_list<const char*> list) {
    return std::any_of(list.begin(), list.end(), [&](const char* one) { return text == one; });
}

/// The text after any byte-order mark and white space.
std::string_view Content(std::string_view text) {
    text = SkipByteOrderMark(text);
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    return text;
}

struct Form {
    std::size_t At;
    std::string_view Mark;
    const char* Name;
};
constexpr Form UnsupportedForms[] = {
    {0, "\x30\x26\xB2\x75", "Windows Media audio"},
    {0, "[Reference]", "Windows Media audio"}, // a list of it
    {0, "OggS", "Ogg"},
    {0, "fLaC", "FLAC"},
    {4, "ftyp", "MP4"},
    {0, "ADIF", "AAC in ADIF"},
};

constexpr std::size_t LatmHeader = 3; // bytes: a mark of 11 bits, and the length of what follows

bool HasLatmMark(ByteView bytes) {
    return bytes.size() >= LatmHeader && bytes[0] == 0x56 && (bytes[1] & 0xE0U) == 0xE0U;
}

/// Where the next frame of LATM begins. One mark is too short to be a signature; two in a row are one.
std::size_t NextLatmFrame(ByteView first) {
    return LatmHeader + ((first[1] & 0x1FU) << 8U | first[2]);
}

bool StartsLikeAudio(ByteView first) {
    return first[0] == 0xFF || (first[0] == 'I' && first[1] == 'D' && first[2] == '3');
}

} // namespace

ContentKind KindOf(ByteView first, bool announced) {
    const std::string_view text = Content({reinterpret_cast<const char*>(first.data()), first.size()});
    if (text.size() < SignatureLength) return ContentKind::Unknown;
    if (text.starts_with("RIFF")) return ContentKind::Wav;
    if (!UnsupportedForm(first).empty()) return ContentKind::Unsupported;
    if (HasLatmMark(first) && first.size() < NextLatmFrame(first) + LatmHeader) return ContentKind::Unknown;
    const std::string signature = LCase(text.substr(0, SignatureLength));
    if (IsAny(signature, PlaylistSignatures)) return ContentKind::Playlist;
    if (IsAny(signature, WebPageSignatures)) return ContentKind::WebPage;
    return announced && !StartsLikeAudio(first) ? ContentKind::Playlist : ContentKind::Frames;
}

std::string UnsupportedForm(ByteView first) {
    const std::string_view text(reinterpret_cast<const char*>(first.data()), first.size());
    for (const Form& form : UnsupportedForms)
        if (text.size() > form.At && text.substr(form.At).starts_with(form.Mark)) return form.Name;
    if (HasLatmMark(first) && HasLatmMark(first.subspan(std::min(NextLatmFrame(first), first.size()))))
        return "AAC in LATM";
    return {};
}

bool AnnouncesPlaylist(std::string_view content_type, std::string_view name) {
    if (!IsAny(content_type, GenericTypes))
        return std::any_of(PlaylistTypes.begin(), PlaylistTypes.end(),
                           [&](const char* type) { return content_type.ends_with(type); });
    const std::string file = LowerCasePath(name);
    return std::any_of(PlaylistNames.begin(), PlaylistNames.end(),
                       [&](const char* ending) { return file.ends_with(ending); });
}

} // namespace quillon
