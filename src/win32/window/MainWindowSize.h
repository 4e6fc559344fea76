#pragma once

#include "state/Forms.h"
#include "win32/window/Theme.h"

#include <windows.h>

namespace quillon {

/// How large the main window is. `least_width` is what its controls need, in pixels.
class MainWindowSize {
  public:
    /// The size of a window that no other is known for yet.
    static void SetFirst(HWND window, const Theme& theme, int least_width);

    /// How small the user can make it.
    static void Limit(MINMAXINFO& limits, const Theme& theme, int least_width);

    /// What the user has made it.
    WindowSize Read(HWND window, const Theme& theme);

    /// Brings the window to the size of the data, or to the screen's.
    void Sync(HWND window, const Theme& theme, WindowSize size);

  private:
    WindowSize shown_;
};

} // namespace quillon
