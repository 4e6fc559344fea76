#pragma once

namespace quillon {

/// The screen. After every handler it is brought up to date by itself; this is for those that take long.
class Display {
  public:
    virtual ~Display() = default;

    /// Draws what the forms' data say now. Lets no window events in.
    virtual void Repaint() = 0;
};

} // namespace quillon
