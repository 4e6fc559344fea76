#pragma once

#include "state/Forms.h"
#include "win32/window/Theme.h"

#include <windows.h>

#include <array>
#include <cstdint>
#include <optional>

namespace quillon {

/// The status bar at the bottom of the window. Its last panel extends to the window's edge.
class StatusBar {
  public:
    StatusBar(HWND parent, HWND tips);

    HWND Window() const { return window_; }

    void SetTheme(const Theme& theme);

    /// Moves the bar to the bottom of its parent and sets the panels' edges.
    void Place(const Theme& theme);

    /// Updates the panels' texts, tool tips and widths and the bar's colour from the data.
    void Sync(const frmATC& form, const Theme& theme);

  private:
    void SyncWidths(const std::array<Panel, 4>& panels, const Theme& theme);
    void SetTip(std::size_t index, const Panel& panel);

    HWND window_;
    HWND tips_;
    std::array<Panel, 4> shown_;
    std::optional<std::uint32_t> color_;
};

} // namespace quillon
