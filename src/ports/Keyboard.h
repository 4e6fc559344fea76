#pragma once

namespace quillon {

/// The keyboard, whichever program has the focus.
class Keyboard {
  public:
    virtual ~Keyboard() = default;

    /// Whether the key of that Windows virtual-key code is down now.
    virtual bool IsDown(int virtual_key) = 0;

    /// Whether the focus is in an edit or combo box of this program.
    virtual bool IsInBox() = 0;

    /// Whether that key is down, or has been since the last question about it.
    virtual bool IsOrWasDown(int virtual_key) = 0;
};

} // namespace quillon
