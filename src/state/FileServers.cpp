#include "state/FileServers.h"

#include "runtime/Text.h"

#include <algorithm>

namespace quillon {

std::string ServerOfPath(std::string_view path) {
    constexpr std::string_view Slashes = "\\/";
    const std::size_t start = std::min(path.find_first_not_of(Slashes), path.size());
    path.remove_prefix(start);
    return start < 2 ? std::string() : LCase(path.substr(0, path.find_first_of(Slashes)));
}

FileServers FileServersOf(const ListView& list) {
    FileServers servers;
    for (const FeedRecord& feed : list.Items())
        if (std::string server = ServerOfPath(feed.URL); !server.empty()) servers.insert(std::move(server));
    return servers;
}

} // namespace quillon
