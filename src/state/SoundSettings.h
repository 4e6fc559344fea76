#pragma once

#include <string>

namespace quillon {

/// A player that plays every address, whichever suits it better.
enum class ForcedPlayer { None, BuiltIn, Control };

/// What plays, and where.
struct SoundSettings {
    ForcedPlayer Player = ForcedPlayer::None;
    std::string Device;     ///< its id; empty: the default device
    std::string DeviceName; ///< when it was chosen

    bool operator==(const SoundSettings&) const = default;
};

} // namespace quillon
