#pragma once

#include "OffsetMemory.h"
#include "win32/system/Handle.h"

#include <windows.h>

#include <cstdint>
#include <map>
#include <span>
#include <string>

namespace practice {

using View = quillon::Handle<void*, UnmapViewOfFile>;

/// FSUIPC's side of the link: serves the rounds that other programs send, with the injected fault, if any.
class Peer {
  public:
    explicit Peer(OffsetMemory& memory) : memory_(memory) {}

    /// Serves the round in the file mapping whose name the global atom holds. Returns the message's
    /// result: 1, or 0 if there is no such mapping or it holds a malformed record.
    std::uint32_t Answer(std::uintptr_t atom);

    std::uint64_t Answered() const { return answered_; }

  private:
    bool ServeMapping(std::uintptr_t atom);
    void HangFor(std::uint32_t time_ms);
    std::uint32_t CurrentFault() const;
    bool Serve(std::span<std::uint8_t> area);

    OffsetMemory& memory_;
    std::map<std::string, View> kept_; ///< clients' areas by name
    std::uint64_t answered_ = 0;
};

} // namespace practice
