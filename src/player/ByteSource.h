#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace quillon {

/// What came of asking for bytes.
enum class Supply {
    Bytes,
    NothingYet,
    Connecting, ///< nothing yet, and the other side has not even agreed to send any
    End,        ///< all of it has been had
    Failed,
    NotAudio, ///< what the other side sends is known to be no sound
    Refused,  ///< the other side says not to ask again
};

struct Got {
    Supply supply;
    std::size_t count = 0; ///< with Supply::Bytes; may be 0 when all that came was not meant for the listener
};

/// Where the bytes of a feed or a recording come from.
class ByteSource {
  public:
    virtual ~ByteSource() = default;

    /// Fills the front of `room` with what is there. Waits for no byte; only looking up a server's name and
    /// checking its certificate may take long.
    virtual Got Read(std::span<std::uint8_t> room) = 0;

    /// Whether the bytes come as they are made, so that what is not taken now is missed.
    virtual bool IsLive() const = 0;

    /// The address or path that the bytes really come from, after all redirects.
    virtual std::string Address() const = 0;

    /// Whether the bytes were announced as a playlist. Known when the first ones have come.
    virtual bool AnnouncesPlaylist() const = 0;

    /// What the other side says is to be heard now; empty without.
    virtual std::string Title() const { return {}; }
};

} // namespace quillon
