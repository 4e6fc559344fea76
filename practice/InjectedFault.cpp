#include "InjectedFault.h"

#include "Units.h"

#include <algorithm>

namespace practice {

const std::array<std::string_view, FaultCount> FaultNames = {
    "none",    "vanish",     "vanish-in-flight", "hang", "zero",   "wrong-version", "old-version",
    "no-fade", "unknown-id", "overrun",          "size", "offset", "destination",   "keep-mapping",
};

namespace {

constexpr std::uint32_t DefaultHangMs = 3000;

} // namespace

std::optional<InjectedFault> ParseFault(std::string_view text) {
    const std::size_t equals = text.find('=');
    const auto name = std::find(FaultNames.begin(), FaultNames.end(), text.substr(0, equals));
    if (name == FaultNames.end()) return {};
    InjectedFault injected{static_cast<std::uint32_t>(name - FaultNames.begin()), 0};
    if (injected.fault == Hang) injected.argument = DefaultHangMs;
    if (equals == std::string_view::npos) return injected;
    const auto argument = NumberOf(text.substr(equals + 1));
    if (!argument) return {};
    injected.argument = *argument;
    return injected;
}

std::string FaultText(InjectedFault injected) {
    const std::string name(FaultNames[injected.fault < FaultCount ? injected.fault : NoFault]);
    return injected.fault == Hang ? name + "=" + std::to_string(injected.argument) : name;
}

} // namespace practice
