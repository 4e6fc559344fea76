#include "Misdeeds.h"

#include "Units.h"

#include <algorithm>

namespace practice {

const std::array<std::string_view, MisdeedCount> MisdeedNames = {
    "none",    "vanish",     "vanish-in-flight", "hang", "zero",   "wrong-version", "old-version",
    "no-fade", "unknown-id", "overrun",          "size", "offset", "destination",
};

namespace {

constexpr std::uint32_t UsualHangMs = 3000;

} // namespace

std::optional<Behaviour> BehaviourOf(std::string_view text) {
    const std::size_t equals = text.find('=');
    const auto name = std::find(MisdeedNames.begin(), MisdeedNames.end(), text.substr(0, equals));
    if (name == MisdeedNames.end()) return {};
    Behaviour behaviour{static_cast<std::uint32_t>(name - MisdeedNames.begin()), 0};
    if (behaviour.misdeed == Hang) behaviour.argument = UsualHangMs;
    if (equals == std::string_view::npos) return behaviour;
    const auto argument = NumberOf(text.substr(equals + 1));
    if (!argument) return {};
    behaviour.argument = *argument;
    return behaviour;
}

std::string BehaviourText(Behaviour behaviour) {
    const std::string name(MisdeedNames[behaviour.misdeed < MisdeedCount ? behaviour.misdeed : NoMisdeed]);
    return behaviour.misdeed == Hang ? name + "=" + std::to_string(behaviour.argument) : name;
}

} // namespace practice
