#pragma once

#include "state/FeedCondition.h"
#include "state/FileServers.h"

#include <string_view>

namespace quillon {

/// Why an entry of the local playlist `list` must not open `path`. Playlists are passed around: opening a path
/// on a server logs in there, and opening a device may hang. Files on the playlist's own server may be opened,
/// and on `servers`.
SilenceReason RefusalOf(std::string_view path, std::string_view list, const FileServers& servers);

} // namespace quillon
