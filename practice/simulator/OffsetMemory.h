#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <span>

namespace practice {

/// The simulator's memory as FSUIPC shows it. Beyond its end it reads as zeros, and writes are ignored.
class OffsetMemory {
  public:
    void Read(std::uint32_t offset, std::span<std::uint8_t> to) const {
        for (std::uint64_t at = offset; std::uint8_t & byte : to) {
            byte = at < bytes_.size() ? bytes_[at] : std::uint8_t{0};
            ++at;
        }
    }

    void Write(std::uint32_t offset, std::span<const std::uint8_t> from) {
        for (std::uint64_t at = offset; const std::uint8_t byte : from) {
            if (at < bytes_.size()) bytes_[at] = byte;
            ++at;
        }
    }

    /// The little-endian number at an offset.
    template <typename Number>
    Number Get(std::uint32_t offset) const {
        Number number{};
        std::memcpy(&number, bytes_.data() + offset, sizeof number);
        return number;
    }

    template <typename Number>
    void Set(std::uint32_t offset, Number number) {
        std::memcpy(bytes_.data() + offset, &number, sizeof number);
    }

  private:
    std::array<std::uint8_t, 0x10000> bytes_{};
};

} // namespace practice
