#pragma once

#include "state/Forms.h"
#include "win32/window/Layout.h"

#include <windows.h>

#include <array>
#include <vector>

namespace quillon {

/// The two preference frames of the main window, each a row above the list while it is shown. Their controls
/// are created when a frame is first shown, which keeps the start fast.
class PreferenceFrames {
  public:
    explicit PreferenceFrames(HWND parent) : parent_(parent) {}

    void SetTheme(const Theme& theme);

    /// The controls that take the focus when F6 comes to a visible frame.
    std::vector<HWND> Panes() const;

    /// The rows of the visible frames.
    std::vector<Row> Rows() const;

    /// Updates the frames from the data. Returns whether a frame was shown or hidden.
    bool Sync(const frmATC& form, const Theme& theme);

    /// The selected entry of a combo box's list, from 0; nothing if none is selected.
    std::optional<std::size_t> PickedEntry(int combo_id) const;

  private:
    void Make(const frmATC& form);

    HWND parent_;
    HWND radio_group_ = nullptr; // like the others, until Make
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
