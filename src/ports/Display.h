#pragma once

namespace quillon {

/// The screen. It is updated after every handler anyway; this is for handlers that take long.
class Display {
  public:
    virtual ~Display() = default;

    /// Draws the forms' data as they are now. Serves no window events.
    virtual void Repaint() = 0;
};

} // namespace quillon
