#pragma once

#include "state/Forms.h"
#include "win32/window/Theme.h"

#include <windows.h>

#include <optional>

namespace quillon {

/// Size of the main window. `least_width` is what its controls need, in pixels.
class MainWindowSize {
  public:
    /// Sets the size for the first start, when none is remembered.
    static void SetFirst(HWND window, const Theme& theme, int least_width);

    /// Limits how small the user can make the window.
    static void Limit(MINMAXINFO& limits, const Theme& theme, int least_width);

    /// The window's current size.
    WindowSize Read(HWND window, const Theme& theme);

    /// Applies the size in the data, limited to the screen's.
    void Sync(HWND window, const Theme& theme, WindowSize size);

    /// Moves a window onto a screen that exists, as near to the place as that lets it. No place leaves it where
    /// it is, if that is on a screen.
    static void MoveTo(HWND window, std::optional<WindowPlace> place);

    static WindowPlace PlaceOf(HWND window);

  private:
    WindowSize shown_;
};

} // namespace quillon
