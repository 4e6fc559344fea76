#pragma once

namespace quillon {

/// How playing an address ended. Where a playlist's entries ended differently, the outcome listed first here is
/// the playlist's.
enum class Outcome {
    Ended,         ///< played to its end
    Unsupported,   ///< recognised, but only another player could play it
    Dropped,       ///< no answer, a faulty one, or the data stopped coming
    NotAudio,      ///< the data is not audio that can be played
    Refused,       ///< the server says not to retry, or the address is malformed
    NoDevice,      ///< there is no working sound device
    PausedTooLong, ///< a live stream was disconnected because nobody was listening
    Playlist,      ///< the data is a list of other addresses
    Cancelled,
};

} // namespace quillon
