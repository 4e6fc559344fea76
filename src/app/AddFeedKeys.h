#pragma once

#include "state/Forms.h"

namespace quillon {

// What may be typed into the boxes of the add-feed dialog. A key is the code of its character, control keys
// included (8 is backspace, 22 Ctrl+V). What is pasted is not looked at here.

inline constexpr int RefusedKey = 0;

/// The character that a key gives in the box: itself, its upper case, or RefusedKey. `text` is the box's text
/// before it, `previous` the key before it in the same box.
int KeyPress(AddBox box, int key, const std::string& text, int previous);

} // namespace quillon
