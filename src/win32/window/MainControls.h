#pragma once

#include "state/Forms.h"
#include "state/PlaybackState.h"
#include "win32/window/Layout.h"

#include <windows.h>

#include <array>
#include <string>
#include <vector>

namespace quillon {

/// The band of controls above the list: selection mode, player strip, distance label and the live ATC picture.
class MainControls {
  public:
    MainControls(HWND parent, HWND tips, const Theme& theme);

    /// Fonts and pictures for a resolution.
    void SetTheme(const Theme& theme);

    /// What takes the keyboard when it comes to that part of the band.
    HWND ModePane() const { return shown_mode_ == SelectionMode::Manual ? manual_ : auto_; }
    HWND PlayerPane() const { return buttons_[0]; }

    std::vector<Row> Rows() const;

    /// Shows what differs from what is shown.
    void Sync(const frmATC& form, const CycleState& cycle);

    int VolumePosition() const;

  private:
    void SyncCountdown(const frmATC& form, const CycleState& cycle);

    HWND tips_;
    HWND mode_group_;
    HWND auto_;
    HWND manual_;
    HWND player_group_;
    std::array<HWND, 3> buttons_;
    HWND volume_label_;
    HWND volume_;
    HWND distance_;
    HWND elapsed_;
    HWND of_;
    HWND gap_;
    HWND picture_;
    HWND picture_label_;
    HWND quit_;
    std::array<IconHandle, 3> glyphs_;
    IconHandle picture_icon_;

    Label shown_distance_;
    std::string shown_elapsed_;
    std::string shown_gap_;
    bool countdown_shown_ = false;
    int shown_volume_ = -1;
    SelectionMode shown_mode_ = SelectionMode::Manual; // differs from the first, so that Sync checks a button
    bool mode_shown_ = false;
    bool picture_shown_ = false;
};

} // namespace quillon
