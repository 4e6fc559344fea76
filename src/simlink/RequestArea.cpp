#include "simlink/RequestArea.h"

#include <cstring>
#include <utility>

namespace quillon {

namespace {

constexpr std::uint32_t ReadRequest = 1;
constexpr std::uint32_t WriteRequest = 2;
constexpr std::uint32_t ReadHeaderSize = 16;
constexpr std::uint32_t WriteHeaderSize = 12;
constexpr std::uint32_t Terminator = 0;

/// Only the identifier's low half counts.
std::uint16_t IdentifierAt(std::span<const std::uint8_t> bytes) {
    std::uint16_t identifier = 0;
    std::memcpy(&identifier, bytes.data(), sizeof identifier);
    return identifier;
}

bool StandsAt(std::span<const std::uint8_t> bytes, const Request& request) {
    if (bytes.size() < std::size_t{request.header_size} + request.Size()) return false;
    constexpr std::size_t Rest = sizeof(std::uint32_t);
    return IdentifierAt(bytes) == request.header[0] &&
           std::memcmp(bytes.data() + Rest, &request.header[1], request.header_size - Rest) == 0;
}

bool EndsAt(std::span<const std::uint8_t> bytes) {
    return bytes.size() >= sizeof Terminator && IdentifierAt(bytes) == Terminator;
}

} // namespace

bool DeliverReplies(const Round& round, std::span<const std::uint8_t> reply) {
    for (const Request& request : round.requests) {
        if (EndsAt(reply)) return true;
        if (!StandsAt(reply, request)) return false;
        reply = reply.subspan(request.header_size);
        if (request.destination && request.Size() != 0)
            std::memcpy(request.destination, reply.data(), request.Size());
        reply = reply.subspan(request.Size());
    }
    return EndsAt(reply);
}

void RequestArea::Attach(std::uint8_t* start) {
    start_ = start;
    FsuipcNext = 0;
    queued_.clear();
}

bool RequestArea::QueueRead(std::uint32_t offset, std::uint32_t size, void* destination) {
    if (!Fits(ReadHeaderSize, size)) return false;
    // A pointer may not fit the field's four bytes, and the other side ignores it, so the record's ordinal
    // number is sent.
    const auto token = destination ? static_cast<std::uint32_t>(queued_.size() + 1) : 0;
    Append({{ReadRequest, offset, size, token}, ReadHeaderSize, destination}, nullptr);
    return true;
}

bool RequestArea::QueueWrite(std::uint32_t offset, std::uint32_t size, const void* source) {
    if (!Fits(WriteHeaderSize, size)) return false;
    Append({{WriteRequest, offset, size, 0}, WriteHeaderSize, nullptr}, source);
    return true;
}

Round RequestArea::Seal() {
    std::memcpy(start_ + FsuipcNext, &Terminator, sizeof Terminator);
    Round round{std::exchange(queued_, {}), FsuipcNext + sizeof Terminator};
    FsuipcNext = 0;
    return round;
}

bool RequestArea::Fits(std::uint64_t header_size, std::uint64_t size) const {
    return FsuipcNext + sizeof Terminator + header_size + size <= Usable;
}

/// Without data the record's space is zeroed.
void RequestArea::Append(const Request& request, const void* data) {
    std::memcpy(start_ + FsuipcNext, request.header.data(), request.header_size);
    FsuipcNext += request.header_size;
    std::memset(start_ + FsuipcNext, 0, request.Size());
    if (data && request.Size() != 0) std::memcpy(start_ + FsuipcNext, data, request.Size());
    FsuipcNext += request.Size();
    queued_.push_back(request);
}

} // namespace quillon
