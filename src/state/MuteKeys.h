#pragma once

#include <algorithm>
#include <array>

namespace quillon {

// Keys are Windows virtual-key codes.

/// The code that stands for no mute key.
inline constexpr int NoMuteKey = 0;

/// The mute key's first options: Tab, Home, Shift, End.
inline constexpr std::array<int, 4> MuteKeyCodes{9, 36, 16, 35};

/// Ctrl, Alt and the Windows keys, with which any other key is a shortcut.
inline constexpr std::array<int, 4> ShortcutKeys{17, 18, 91, 92};

/// The option of a key, from 1; the fifth is for every other key, and for none.
inline int MuteKeyOption(int code) {
    return static_cast<int>(std::find(MuteKeyCodes.begin(), MuteKeyCodes.end(), code) - MuteKeyCodes.begin()) +
           1;
}

/// Whether a key may become the mute key: no mouse button, no shortcut key, and no code that input methods
/// send.
inline bool CanBeMuteKey(int code) {
    constexpr int First = 8;
    constexpr int InputMethod = 229;
    constexpr int Packet = 231;
    return code >= First && code != InputMethod && code != Packet &&
           std::find(ShortcutKeys.begin(), ShortcutKeys.end(), code) == ShortcutKeys.end();
}

} // namespace quillon
