#pragma once

#include <windows.h>

#include <optional>

namespace quillon {

/// The modal dialog of the mute key, with that key's option selected. Returns the key that the user set
/// (NoMuteKey for none), nothing if the user cancelled.
std::optional<int> AskForMuteKey(HWND owner, int key);

} // namespace quillon
