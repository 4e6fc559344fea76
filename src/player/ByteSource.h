#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quillon {

/// What came of asking for bytes.
enum class Supply {
    Bytes,
    NothingYet,
    Connecting, ///< nothing yet, and the other side has not even agreed to send any
    End,        ///< all of it has been had
    Failed,
};

struct Got {
    Supply supply;
    std::size_t count = 0; ///< bytes, with Supply::Bytes
};

/// Where the bytes of a feed or a recording come from.
class ByteSource {
  public:
    virtual ~ByteSource() = default;

    /// Fills the front of `room` with what is there. Waits for no byte; only looking up a server's name may
    /// take long.
    virtual Got Read(std::span<std::uint8_t> room) = 0;

    /// Whether the bytes come as they are made, so that what is not taken now is missed.
    virtual bool IsLive() const = 0;
};

} // namespace quillon
