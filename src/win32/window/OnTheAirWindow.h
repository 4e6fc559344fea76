#pragma once

#include "app/Program.h"
#include "win32/window/AirPicture.h"
#include "win32/window/ModelessDialog.h"

#include <windows.h>

#include <commctrl.h>
#include <functional>
#include <optional>
#include <string>

namespace quillon {

/// The window "On the air": the list of the feeds around the aircraft and, where there is room, their picture.
class OnTheAirWindow : public ModelessDialog {
  public:
    /// `sync` updates all windows; it is called after each event.
    explicit OnTheAirWindow(std::function<void()> sync);

    /// Opens, updates or closes the window to match the data.
    void Sync(HWND owner, Program& program);

  private:
    INT_PTR Handle(UINT message, WPARAM wparam, LPARAM lparam) override;
    INT_PTR Notify(NMHDR& header);
    void Open(HWND owner);
    void AddColumns();
    void Show();
    void ShowText(int id, const std::string& text);
    void ShowRows();
    void ShowSelection();
    void Layout();
    void FitColumns();
    void SelectFromList();
    void SelectFromPicture(std::size_t row);
    void PickSelected();
    void FillItem(LVITEMW& item);
    std::optional<std::size_t> SelectedRow() const;
    const OnTheAirForm& Form() const { return program_->State().on_the_air; }
    HWND Item(int id) const { return GetDlgItem(Window(), id); }

    std::function<void()> sync_;
    AirPicture picture_;
    Program* program_ = nullptr;
    ViewRequest activation_served_ = 0;
    std::uint64_t revision_ = 0;
    bool syncing_ = false;
    std::wstring cell_; // keeps the text of the last requested cell alive
};

} // namespace quillon
