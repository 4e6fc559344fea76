#pragma once

#include "Fields.h"
#include "Grid.h"
#include "Peer.h"
#include "win32/window/Theme.h"

#include <windows.h>

#include <array>
#include <string>
#include <vector>

namespace practice {

/// The practice simulator's window: its class is what other programs find it by, its fields show and change the
/// simulator's memory at once.
class SimulatorWindow {
  public:
    SimulatorWindow(OffsetMemory& memory, Peer& peer) : memory_(memory), peer_(peer) {}

    /// Makes the window and shows it as `show` (SW_...) says. False when the system refuses.
    bool Create(const std::wstring& window_class, int show);

    HWND Handle() const { return window_; }

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam);

    void MoveFocus(WPARAM wparam, LPARAM lparam);
    void MakeControls();
    void FillChoices();
    void Place(const POINT* corner);
    void Command(int id, int notification);
    void Edited(FieldId field);
    void FlyTo();
    void Refresh();
    void Show(FieldId field);
    std::string Entered(FieldId field) const;
    void ShowTraffic();
    LRESULT Paint(HDC dc, HWND control) const;
    HWND Box(int id) const { return GetDlgItem(window_, id); }

    OffsetMemory& memory_;
    Peer& peer_;
    HWND window_ = nullptr;
    HWND status_bar_ = nullptr;
    quillon::Theme theme_;
    Grid grid_;
    UINT link_message_ = 0;
    std::array<std::vector<std::string>, FieldCount> choices_; ///< field texts of the combo boxes' rows
    std::array<std::string, FieldCount> shown_;
    std::array<bool, FieldCount> wrong_{};
    bool refreshing_ = false;
    std::uint64_t shown_traffic_ = ~std::uint64_t{0};
};

} // namespace practice
