#pragma once

#include "state/ProgramState.h"
#include "win32/window/Layout.h"

#include <windows.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace quillon {

/// The controls above the list: selection mode, player strip, distance label and live ATC picture.
class MainControls {
  public:
    MainControls(HWND parent, HWND tips, const Theme& theme);

    /// Sets fonts and pictures for the resolution.
    void SetTheme(const Theme& theme);

    /// The control that takes the focus when F6 comes to that part.
    HWND ModePane() const { return shown_mode_ == SelectionMode::Manual ? manual_ : auto_; }
    HWND PlayerPane() const { return buttons_[0]; }

    std::vector<Row> Rows() const;

    /// What the compact view shares with the full one: the player's buttons and its volume; the distance.
    std::vector<Cell> PlayerCells() const;
    Cell DistanceCell() const { return {distance_, Grows}; }

    /// Shows the full view's controls, or only those that the compact one shares.
    void SetCompact(bool compact);

    /// Updates the controls from the data.
    void Sync(const ProgramState& state);

    int VolumePosition() const;

    /// The volume that the wheel or a key asks for while its control has them: up is always louder.
    std::optional<int> WantedVolume(const MSG& message) const;

    /// Shows the volume's figure beside its control, or no longer.
    void ShowVolumeTip(bool shown) const;

  private:
    void SyncCountdown(const ProgramState& state);

    HWND tips_;
    HWND mode_group_;
    HWND auto_;
    HWND manual_;
    HWND player_group_;
    std::array<HWND, 4> buttons_;
    HWND volume_label_;
    HWND volume_;
    HWND distance_;
    HWND elapsed_;
    HWND of_;
    HWND interval_;
    HWND site_button_;
    HWND site_label_;
    HWND quit_;
    std::array<IconHandle, 4> glyphs_;
    IconHandle site_icon_;

    Label shown_distance_;
    std::string shown_elapsed_;
    std::string shown_interval_;
    bool countdown_shown_ = false;
    bool compact_ = false;
    bool muted_ = false;
    int shown_volume_ = -1;
    SelectionMode shown_mode_ = SelectionMode::Manual;
    bool mode_shown_ = false;
    bool site_shown_ = false;
};

} // namespace quillon
