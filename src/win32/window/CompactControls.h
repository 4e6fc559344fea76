#pragma once

#include "state/Forms.h"
#include "win32/window/MainControls.h"

#include <windows.h>

#include <string>
#include <vector>

namespace quillon {

/// The compact view: what the status bar says as labels, the controls that it shares with the full view, and
/// the button that leads back to that.
class CompactControls {
  public:
    explicit CompactControls(HWND parent);

    void SetTheme(const Theme& theme);

    std::vector<Row> Rows(const MainControls& shared) const;

    void Show(bool visible);

    /// Updates the labels from the data.
    void Sync(const frmATC& form);

  private:
    HWND feed_;
    HWND state_;
    HWND frequency_;
    HWND back_;
    std::string shown_feed_;
    std::string shown_state_;
    std::string shown_frequency_;
};

} // namespace quillon
