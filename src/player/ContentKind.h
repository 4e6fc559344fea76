#pragma once

#include "player/Pcm.h"

#include <string_view>

namespace quillon {

enum class ContentKind {
    Unknown, ///< too few bytes to tell
    Wav,
    Mp3, ///< or nothing that is known; only its frames can tell
    Playlist,
    WebPage,
};

/// What the bytes at the front of a file or a body are. `promised`: they were announced as a playlist, which is
/// believed unless they start like sound.
ContentKind KindOf(ByteView first, bool promised);

/// Whether something of that content type (lower case, may be empty) and name (a path or an address) announces
/// a playlist. A content type that says anything else than "bytes" or "text" wins over the name.
bool AnnouncesPlaylist(std::string_view content_type, std::string_view name);

} // namespace quillon
