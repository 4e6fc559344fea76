#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace quillon {

/// A record as it was queued. The other side's copy is checked against it, never trusted.
struct Request {
    std::array<std::uint32_t, 4>
        header;                ///< identifier, offset, size and, of a read only, the destination's token
    std::uint32_t header_size; ///< bytes of it that stand in the area
    void* destination;         ///< of a read; may be null

    std::uint32_t Size() const { return header[2]; }
};

/// The records of one round trip.
struct Round {
    std::vector<Request> requests;
    std::size_t length = 0; ///< bytes of the area that they and their terminator take
};

/// Copies the replies of a round to their destinations, record by record. A zero identifier ends the walk.
/// Returns false at the first record that differs from the one queued (identifier, offset, size or destination)
/// or runs past the end; it and the rest are not copied.
bool DeliverReplies(const Round& round, std::span<const std::uint8_t> reply);

/// The memory shared with the simulator, into which requests are written back to back, all numbers
/// little-endian. Does not own it.
class RequestArea {
  public:
    static constexpr std::size_t Length = 0x8000;
    static constexpr std::size_t Usable = 0x7F00; ///< records and terminator

    /// Starts an empty queue in memory of `Length` bytes.
    void Attach(std::uint8_t* start);

    /// Return false and queue nothing if the area is full.
    bool QueueRead(std::uint32_t offset, std::uint32_t size, void* destination);
    bool QueueWrite(std::uint32_t offset, std::uint32_t size, const void* source);

    bool Empty() const { return queued_.empty(); }

    /// Ends the queued records with the terminator and empties the queue.
    Round Seal();

  private:
    bool Fits(std::uint64_t header_size, std::uint64_t size) const;
    void Append(const Request& request, const void* data);

    std::uint8_t* start_ = nullptr;
    std::size_t FsuipcNext = 0; ///< where the next record will be written, from the start
    std::vector<Request> queued_;
};

} // namespace quillon
