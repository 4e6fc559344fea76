#pragma once

#include "OffsetMemory.h"

#include <cstdint>
#include <span>

namespace practice {

/// FSUIPC's side of the link: serves the rounds that other programs send, well or badly as told.
class Peer {
  public:
    explicit Peer(OffsetMemory& memory) : memory_(memory) {}

    /// Serves the round in the file mapping whose name the global atom holds. Returns the answer to the
    /// message: 1, or 0 when there is no such mapping or something in it is not understood.
    std::uint32_t Answer(std::uintptr_t atom);

    std::uint64_t Answered() const { return answered_; }

  private:
    bool ServeMapping(std::uintptr_t atom);
    void HangFor(std::uint32_t time_ms);
    std::uint32_t Misdeed() const;
    bool Serve(std::span<std::uint8_t> area);

    OffsetMemory& memory_;
    std::uint64_t answered_ = 0;
};

} // namespace practice
