#pragma once

namespace quillon {

/// How the playing of an address ended. Of several that were tried, the one named first here decides what
/// happens next.
enum class Ending {
    Ended,      ///< all of it was heard
    Dropped,    ///< no answer, a bad one, or the bytes stopped coming
    NotAudio,   ///< what came is no sound that can be played
    Refused,    ///< the server says not to come again, or the address is none
    NoDevice,   ///< there is nothing to play on
    PausedLong, ///< a live stream was let go because nobody listens
    Playlist,   ///< it is a list of other addresses
    Cancelled,
};

} // namespace quillon
