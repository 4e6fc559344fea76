#pragma once

#include "state/Forms.h"

namespace quillon {

// What may be typed into the boxes of the add-feed dialog. A key is its character's code, also for control keys
// (8 is backspace, 22 Ctrl+V). Pasted text is not checked here.

inline constexpr int RefusedKey = 0;

/// The character that a key types in the box: itself, its upper case, or RefusedKey. `text` is what the box
/// held before, `previous` the key before it in the same box.
int KeyPress(AddBox box, int key, const std::string& text, int previous);

} // namespace quillon
