#pragma once

#include "player/Reach.h"
#include "state/FeedCondition.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace quillon {

/// Result of reading or writing without waiting.
enum class IoStatus {
    Ok,
    WouldBlock,
    Connecting, ///< would block, and the other side has not answered at all yet
    EndOfStream,
    Failed,
    NotAudio,    ///< the other side announces something other than audio
    Unsupported, ///< it leads to where only another player could follow
    Refused,     ///< the other side says not to retry
};

struct IoResult {
    IoStatus status;
    std::size_t count = 0; ///< bytes, with IoStatus::Ok; may be 0, then the next call may give some
};

/// Supplies the bytes of a feed or a recording.
class ByteSource {
  public:
    virtual ~ByteSource() = default;

    /// Fills the front of `room` with what has arrived. Does not wait for data, but looking up a server's name
    /// and checking its certificate may take several seconds.
    virtual IoResult Read(std::span<std::uint8_t> room) = 0;

    /// Whether the audio is live: what is not read now is lost.
    virtual bool IsLive() const = 0;

    /// The address or path that the bytes come from, after all redirects.
    virtual std::string Address() const = 0;

    /// Whether the bytes were announced as a playlist. Valid after the first successful Read.
    virtual bool AnnouncesPlaylist() const = 0;

    /// What its servers mean for the addresses that its bytes lead to.
    virtual Origin Onward() const { return {}; }

    /// The current stream title; empty if there is none.
    virtual std::string Title() const { return {}; }

    /// Why there are no bytes, as far as the source itself knows. Valid after the first Read.
    virtual SilenceReason Problem() const { return {}; }
};

} // namespace quillon
