#include "player/LocalEntry.h"

#include "runtime/Text.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr std::string_view Slashes = "\\/";

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

/// "nul", "NUL.wav" and "com1 .mp3" are devices in every folder.
bool IsDevice(std::string_view part) {
    std::string name = LCase(part.substr(0, part.find('.')));
    name.erase(name.find_last_not_of(' ') + 1); // npos + 1 is 0
    for (const std::string_view device : {"con", "prn", "aux", "nul", "conin$", "conout$", "clock$", "?"})
        if (name == device) return true;
    const bool has_number =
        name.size() > 3 && name.substr(3).find_first_not_of("0123456789\xB2\xB3\xB9\xC2") == name.npos;
    return has_number && (name.starts_with("com") || name.starts_with("lpt"));
}

/// Pipes look like files of a server.
bool IsPipe(std::string_view path) {
    const std::string server = ServerOfPath(path);
    if (server.empty()) return false;
    path.remove_prefix(std::min(path.find_first_not_of(Slashes) + server.size() + 1, path.size()));
    const std::string share = LCase(path.substr(0, path.find_first_of(Slashes)));
    return share == "pipe" || share == "mailslot" || share == "ipc$";
}

bool NamesDevice(std::string_view path) {
    if (path.find(':', 2) < path.size() || path.starts_with(':')) return true; // or a stream within a file
    if (ServerOfPath(path) == "." || IsPipe(path)) return true;
    if (path.find(':') == 1) path.remove_prefix(2);
    while (!path.empty()) {
        const std::size_t end = std::min(path.find_first_of(Slashes), path.size());
        if (IsDevice(path.substr(0, end))) return true;
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return false;
}

} // namespace

SilenceReason RefusalOf(std::string_view path, std::string_view list, const FileServers& servers) {
    if (std::any_of(path.begin(), path.end(), IsControl)) return {SilenceCause::ControlCharacters, ""};
    if (NamesDevice(path)) return {SilenceCause::Device, ""};
    const std::string server = ServerOfPath(path);
    if (server.empty() || server == ServerOfPath(list) || servers.contains(server)) return {};
    return {SilenceCause::ForeignServer, server};
}

} // namespace quillon
