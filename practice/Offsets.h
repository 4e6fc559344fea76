#pragma once

#include <cstdint>

namespace practice {

// Offsets in the simulator's 64 KiB of memory.
inline constexpr std::uint32_t PauseOffset = 0x0264; // 16 bits, 1 while paused
inline constexpr std::uint32_t Com1Offset = 0x034E;  // 16 bits of BCD, as are the other radios
inline constexpr std::uint32_t Com1StandbyOffset = 0x311A;
inline constexpr std::uint32_t Com2Offset = 0x3118;
inline constexpr std::uint32_t Com2StandbyOffset = 0x311C;
inline constexpr std::uint32_t LatitudeOffset = 0x0560; // 32 bits of fraction, then 32 bits of whole units
inline constexpr std::uint32_t LongitudeOffset = 0x0568;
inline constexpr std::uint32_t VersionOffset = 0x3304;   // 32 bits
inline constexpr std::uint32_t SimulatorOffset = 0x3308; // 16 bits, followed by the mark
inline constexpr std::uint32_t ValidMarkOffset = 0x330A;
inline constexpr std::uint16_t ValidMark = 0xFADE;
inline constexpr std::uint32_t InjectedFaultOffset = 0x66C0; // not FSUIPC's: an InjectedFault

} // namespace practice
