#include "player/PlaylistWalk.h"

#include "player/Address.h"
#include "player/LocalEntry.h"

#include <algorithm>

namespace quillon {

PlaylistWalk::PlaylistWalk(const std::string& address, FileServers servers, std::size_t most_entries)
    : servers_(std::move(servers)), most_entries_(most_entries), pending_{{address, address, 0, {}, {}}} {}

std::optional<PlaylistWalk::Stop> PlaylistWalk::Next() {
    if (pending_.empty()) return {};
    Stop stop = std::move(pending_.back());
    pending_.pop_back();
    depth_ = stop.depth;
    return stop;
}

SilenceReason PlaylistWalk::Enter(std::string_view bytes, const std::string& from, Origin origin) {
    Entries entries = ReadPlaylist(bytes, from);
    if (entries.empty()) return {SilenceCause::EmptyPlaylist, ""};
    if (depth_ >= DeepestPlaylist) return {SilenceCause::PlaylistsTooDeep, ""};
    entries.resize(std::min(entries.size(), most_entries_));
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        const auto address = ResolveEntry(from, *entry);
        const bool is_file = address && !IsStreamAddress(*address);
        pending_.push_back({*entry, address, depth_ + 1,
                            is_file ? RefusalOf(*address, from, servers_) : SilenceReason(), origin});
    }
    return {};
}

} // namespace quillon
