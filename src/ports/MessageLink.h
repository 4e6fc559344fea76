#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace quillon {

/// A window, mapping or other system handle; 0 means none.
using NativeHandle = std::uintptr_t;

/// Window messages to the simulator's side of the link.
class MessageLink {
  public:
    virtual ~MessageLink() = default;

    /// The top-level window of that class, 0 if there is none.
    virtual NativeHandle FindPeerWindow(const std::string& window_class) = 0;

    /// The system-wide number of a named message, 0 on failure.
    virtual std::uint32_t RegisterMessage(const std::string& name) = 0;

    struct Sent {
        bool Delivered;          ///< the peer answered before the time ran out
        std::uint32_t Reply;     ///< its answer
        std::uint32_t LastError; ///< the system's error number if it did not, 0 for a time-out
    };

    /// Sends the message and waits for the answer, at most `timeout_ms`.
    virtual Sent Send(NativeHandle window, std::uint32_t message, std::uint32_t wparam,
                      std::uint32_t timeout_ms) = 0;

    virtual std::uint32_t ProcessId() = 0;
};

/// The named memory that both sides of the link share.
class SharedMemory {
  public:
    virtual ~SharedMemory() = default;

    /// Adds a name to the global atom table; 0 on failure.
    virtual std::uint32_t AddNameAtom(const std::string& name) = 0;
    virtual void DeleteAtom(std::uint32_t atom) = 0;

    struct Mapping {
        NativeHandle Handle; ///< 0 on failure
        bool AlreadyExisted; ///< another program had created one of that name
    };

    /// Makes (or opens) page-file-backed read/write memory of that name.
    virtual Mapping CreateMapping(const std::string& name, std::size_t size) = 0;
    virtual void CloseMapping(NativeHandle mapping) = 0;

    /// Start of a writable view of the whole mapping, null on failure.
    virtual std::uint8_t* MapView(NativeHandle mapping) = 0;
    virtual void UnmapView(std::uint8_t* view) = 0;
};

} // namespace quillon
