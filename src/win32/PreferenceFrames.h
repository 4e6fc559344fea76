#pragma once

#include "state/Forms.h"
#include "win32/Theme.h"

#include <windows.h>

#include <array>
#include <vector>

namespace quillon {

/// The two preference frames of the main window. Each is a band of its own above the list while it is shown.
class PreferenceFrames {
  public:
    explicit PreferenceFrames(HWND parent);

    void SetTheme(const Theme& theme);

    /// What takes the keyboard when it comes to one of the frames that are shown.
    std::vector<HWND> Panes() const;

    /// Places the frames that are shown from `y` down; returns the height they take.
    int Place(const Theme& theme, int y);

    /// Shows what differs from what is shown. Returns whether the frames' height has changed.
    bool Sync(const frmATC& form);

    /// The entry picked from the list of a combo box.
    std::size_t PickedEntry(int combo_id) const;

  private:
    void PlaceRadios(const Theme& theme, int y, int height);
    void PlaceChatter(const Theme& theme, int y, int height);
    void FillCombos(const frmATC& form);

    HWND radio_group_;
    std::array<HWND, 4> radios_;
    HWND radio_close_;
    HWND chatter_group_;
    HWND interval_;
    HWND min_;
    HWND to_;
    HWND max_;
    HWND seconds_;
    HWND chatter_close_;

    bool radios_shown_ = false;
    bool chatter_shown_ = false;
    int shown_radio_ = 0;
    std::string shown_min_;
    std::string shown_max_;
};

} // namespace quillon
