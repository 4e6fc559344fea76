#pragma once

#include "state/Forms.h"
#include "win32/window/Layout.h"

#include <windows.h>

#include <array>
#include <vector>

namespace quillon {

/// The two preference frames of the main window. Each is a band of its own above the list while it is shown.
/// Their controls are made when a frame is first shown, as that takes time which a start need not take.
class PreferenceFrames {
  public:
    explicit PreferenceFrames(HWND parent) : parent_(parent) {}

    void SetTheme(const Theme& theme);

    /// What takes the keyboard when it comes to one of the frames that are shown.
    std::vector<HWND> Panes() const;

    /// The frames that are shown.
    std::vector<Row> Rows() const;

    /// Shows what differs from what is shown. Returns whether the frames' height has changed.
    bool Sync(const frmATC& form, const Theme& theme);

    /// The entry picked from the list of a combo box; none when the list was closed without a pick.
    std::optional<std::size_t> PickedEntry(int combo_id) const;

  private:
    void Make(const frmATC& form);

    HWND parent_;
    HWND radio_group_ = nullptr; // as the others, until they are made
    std::array<HWND, 4> radios_{};
    HWND radio_close_ = nullptr;
    HWND chatter_group_ = nullptr;
    HWND interval_ = nullptr;
    HWND min_ = nullptr;
    HWND to_ = nullptr;
    HWND max_ = nullptr;
    HWND seconds_ = nullptr;
    HWND chatter_close_ = nullptr;

    bool radios_shown_ = false;
    bool chatter_shown_ = false;
    int shown_radio_ = 0;
    std::string shown_min_;
    std::string shown_max_;
};

} // namespace quillon
