#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace quillon {

/// Result codes of the link's calls.
enum LinkResult : std::uint32_t {
    LinkConnected = 0,
    LinkAlreadyOpen = 1,
    LinkNoWindow = 2,
    LinkNoMessage = 3,
    LinkNoAtom = 4,
    LinkMappingTaken = 5,
    LinkNoView = 6,
    LinkWrongVersion = 7,
    LinkOtherSimulator = 8,
    LinkNotOpen = 9,
    LinkNothingQueued = 10,
    LinkTimedOut = 11,
    LinkSendFailed = 12,
    LinkBadData = 13,
    LinkWideClientAlone = 14,
    LinkQueueFull = 15,
};

/// One text per result code.
extern const std::array<const char*, 16> ResultTexts;

/// Names of the simulator codes 0 to 8.
extern const std::array<const char*, 9> SimNames;

/// Name of any simulator code, including those newer than SimNames; an unknown code becomes a number.
std::string SimName(std::uint32_t code);

/// The same for the user: the module that stands in for FSUIPC in X-Plane says that it is in an FSX, and only
/// its version tells.
std::string ShownSimName(std::uint32_t code, std::int32_t version_word);

} // namespace quillon
