#pragma once

#include <windows.h>

namespace quillon {

/// A dialog beside which the program runs on. Its window is destroyed with the owner's.
class ModelessDialog {
  public:
    ModelessDialog() = default;
    virtual ~ModelessDialog() { CloseWindow(); }
    ModelessDialog(const ModelessDialog&) = delete;
    ModelessDialog& operator=(const ModelessDialog&) = delete;

    /// Null while the dialog is closed.
    HWND Window() const { return window_; }

  protected:
    /// Creates the window from a dialog resource, hidden. Window() stays null if Windows refuses.
    void OpenWindow(int resource, HWND owner);
    void CloseWindow();

    /// Handles the dialog's messages, from WM_INITDIALOG until it is closed. Returns what a dialog procedure
    /// does.
    virtual INT_PTR Handle(UINT message, WPARAM wparam, LPARAM lparam) = 0;

  private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam);

    HWND window_ = nullptr;
};

} // namespace quillon
