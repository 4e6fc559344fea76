#pragma once

#include <span>

namespace quillon {

/// Upper left corner of a window, in pixels of the desktop; screens left of or above the first one have
/// negative coordinates.
struct WindowPlace {
    int Left = 0;
    int Top = 0;

    bool operator==(const WindowPlace&) const = default;
};

/// A window's or a screen's area, in the same pixels.
struct ScreenArea {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
};

/// The place nearest to the window's own at which it lies on one of the screens: on the one that shows most of
/// it already, or else on the first. Where it is larger than the screen, its upper left corner is seen.
WindowPlace OnScreen(const ScreenArea& window, std::span<const ScreenArea> screens);

} // namespace quillon
