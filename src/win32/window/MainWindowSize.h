#pragma once

#include "state/Forms.h"
#include "win32/window/Theme.h"

#include <windows.h>

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

  private:
    WindowSize shown_;
};

} // namespace quillon
