#pragma once

#include "player/Pcm.h"

#include <string>
#include <string_view>

namespace quillon {

enum class ContentKind {
    Unknown, ///< too few bytes to tell
    Wav,
    Frames, ///< of MP3 or AAC; or anything unknown, as only frames can tell
    Playlist,
    WebPage,
    Unsupported, ///< a form of sound, or a list, that only another player could play
};

/// Detects the kind of a file or body from its first bytes. `announced`: it was announced as a playlist, which
/// decides unless the bytes start like audio.
ContentKind KindOf(ByteView first, bool announced);

/// The name of an unsupported form, by the first bytes; empty for any other content.
std::string UnsupportedForm(ByteView first);

/// Whether a content type (lower case, may be empty) and a name (path or address) announce a playlist. The name
/// only counts if the type is missing or generic, such as plain text.
bool AnnouncesPlaylist(std::string_view content_type, std::string_view name);

} // namespace quillon
