#pragma once

#include "state/Forms.h"
#include "win32/window/Theme.h"

#include <windows.h>

#include <array>
#include <cstdint>
#include <optional>

namespace quillon {

/// The status bar at the window's foot. Its last panel reaches to the window's edge.
class StatusBar {
  public:
    StatusBar(HWND parent, HWND tips);

    HWND Window() const { return window_; }

    void SetTheme(const Theme& theme);

    /// Puts the bar at its parent's foot and sets the panels' edges.
    void Place(const Theme& theme);

    /// Shows the panels' texts, tool tips and widths, and the bar's colour.
    void Sync(const frmATC& form, const Theme& theme);

  private:
    void SetTip(int index, const Panel& panel);

    HWND window_;
    HWND tips_;
    std::array<Panel, 4> shown_;
    std::optional<std::uint32_t> color_;
};

} // namespace quillon
