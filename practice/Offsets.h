#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace practice {

// Offsets in the simulator's 64 KiB of memory.
inline constexpr std::uint32_t PauseOffset = 0x0264;    // 16 bits, 1 while paused
inline constexpr std::uint32_t LatitudeOffset = 0x0560; // 32 bits of fraction, then 32 bits of whole units
inline constexpr std::uint32_t LongitudeOffset = 0x0568;
inline constexpr std::uint32_t VersionOffset = 0x3304;   // 32 bits
inline constexpr std::uint32_t SimulatorOffset = 0x3308; // 16 bits, followed by the mark
inline constexpr std::uint32_t ValidMarkOffset = 0x330A;
inline constexpr std::uint16_t ValidMark = 0xFADE;
inline constexpr std::uint32_t InjectedFaultOffset = 0x66C0; // not FSUIPC's: an InjectedFault

struct Radio {
    std::string_view name; ///< of its command-line option and in the copilot's commands
    std::uint32_t word;    ///< 16 bits of BCD
    std::uint32_t hertz;   ///< 32 bits, of modules of version 4 and newer
};

inline constexpr std::array<Radio, 4> Radios = {{
    {"com1", 0x034E, 0x05C4},
    {"com1stby", 0x311A, 0x05CC},
    {"com2", 0x3118, 0x05C8},
    {"com2stby", 0x311C, 0x05D0},
}};

} // namespace practice
