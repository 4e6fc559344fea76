#pragma once

#include "app/Program.h"
#include "win32/window/ModelessDialog.h"

#include <windows.h>

#include <commctrl.h>
#include <functional>
#include <string>

namespace quillon {

/// The window of the catalogue's check. Its timer drives the check.
class CheckFeedsWindow : public ModelessDialog {
  public:
    /// `sync` updates all windows; it is called after each event.
    explicit CheckFeedsWindow(std::function<void()> sync) : sync_(std::move(sync)) {}

    /// Opens, updates or closes the window to match the data.
    void Sync(HWND owner, Program& program);

  private:
    INT_PTR Handle(UINT message, WPARAM wparam, LPARAM lparam) override;
    void Open(HWND owner);
    void AddColumns();
    void Show();
    void ShowRows();
    void Obey(int control);
    void Layout();
    void FitColumns();
    void FindSelected();
    void FillItem(LVITEMW& item);
    void Event(const std::function<void(FeedCheck&)>& event);
    HWND Item(int id) const { return GetDlgItem(Window(), id); }

    std::function<void()> sync_;
    Program* program_ = nullptr;
    ViewRequest activation_served_ = 0;
    std::uint64_t revision_ = 0;
    std::wstring cell_; // keeps the text of the last requested cell alive
};

} // namespace quillon
