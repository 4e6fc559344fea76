#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace practice {

/// The ways in which the practice simulator can go wrong; the numbers are what stands at MisdeedOffset.
enum Misdeed : std::uint32_t {
    NoMisdeed,
    Vanish,         ///< the process ends once the round is answered
    VanishInFlight, ///< the process ends when the next round arrives
    Hang,           ///< every answer comes that many milliseconds late
    ZeroReply,      ///< the message is answered with 0
    WrongVersion,   ///< too low to be FSUIPC's
    OldVersion,     ///< FSUIPC's, but older than 2.84
    NoMark,         ///< the simulator's code comes without the mark
    UnknownId,      ///< from here on the records come back damaged: their identifier
    Overrun,        ///< a size beyond the area
    OtherSize,
    OtherOffset,
    OtherDestination,
    MisdeedCount,
};

extern const std::array<std::string_view, MisdeedCount> MisdeedNames;

struct Behaviour {
    std::uint32_t misdeed = NoMisdeed;
    std::uint32_t argument = 0;
};

/// "hang=3000" or a bare name; nothing if there is no such misdeed. Without a number a hang lasts three
/// seconds.
std::optional<Behaviour> BehaviourOf(std::string_view text);
std::string BehaviourText(Behaviour behaviour);

} // namespace practice
