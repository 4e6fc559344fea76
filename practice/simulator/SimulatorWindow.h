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

/// The practice simulator's window. Other programs find it by its class; its fields show the simulator's memory
/// and change it as they are edited.
class SimulatorWindow {
  public:
    SimulatorWindow(OffsetMemory& memory, Peer& peer) : memory_(memory), peer_(peer) {}

    /// Creates and shows the window; `show` is an SW_... value. Returns false if Windows refuses.
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
    std::array<std::vector<std::string>, FieldCount> choices_; ///< the value of each row of a field's combo box
    std::array<std::string, FieldCount> shown_;
    std::array<bool, FieldCount> wrong_{};
    bool refreshing_ = false;
    std::uint64_t shown_traffic_ = ~std::uint64_t{0};
};

} // namespace practice
