#pragma once

namespace quillon {

/// The keyboard, whichever program has its focus.
class Keyboard {
  public:
    virtual ~Keyboard() = default;

    /// Whether the key of that Windows virtual-key code is down at this moment.
    virtual bool IsDown(int virtual_key) = 0;
};

} // namespace quillon
