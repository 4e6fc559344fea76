#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace practice {

/// Faults that can be injected into the practice simulator; the numbers are those at InjectedFaultOffset.
enum Fault : std::uint32_t {
    NoFault,
    Vanish,         ///< the process ends after answering a round
    VanishInFlight, ///< the process ends when the next round arrives
    Hang,           ///< every answer is delayed
    ZeroReply,      ///< the message is answered with 0
    WrongVersion,   ///< too low to be FSUIPC's
    OldVersion,     ///< FSUIPC's, but older than 2.84
    NoMark,         ///< no valid mark after the simulator's code
    UnknownId,      ///< this and the rest corrupt the headers of the replies: the identifier
    Overrun,        ///< a size that reaches beyond the area
    OtherSize,
    OtherOffset,
    OtherDestination,
    KeepMapping, ///< no fault to a good client: keeps each client's area mapped
    FaultCount,
};

extern const std::array<std::string_view, FaultCount> FaultNames;

/// As it lies in the simulator's memory.
struct InjectedFault {
    std::uint32_t fault = NoFault;
    std::uint32_t argument = 0; ///< of a hang: the delay in ms
};

/// Reads "hang=3000" or a bare name; nothing if the text is neither. A hang without a number is 3000 ms.
std::optional<InjectedFault> ParseFault(std::string_view text);
std::string FaultText(InjectedFault injected);

} // namespace practice
