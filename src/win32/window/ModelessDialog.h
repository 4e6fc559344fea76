#pragma once

#include <windows.h>

namespace quillon {

/// A dialog that the program goes on beside. Its window also goes when the owner's does.
class ModelessDialog {
  public:
    ModelessDialog() = default;
    virtual ~ModelessDialog() { CloseWindow(); }
    ModelessDialog(const ModelessDialog&) = delete;
    ModelessDialog& operator=(const ModelessDialog&) = delete;

    /// Null while there is none.
    HWND Window() const { return window_; }

  protected:
    /// Makes the window of a dialog resource, hidden. There is none when Windows refuses.
    void OpenWindow(int resource, HWND owner);
    void CloseWindow();

    /// The dialog's messages, from WM_INITDIALOG on and until it is closed; returns what a dialog procedure
    /// does.
    virtual INT_PTR Handle(UINT message, WPARAM wparam, LPARAM lparam) = 0;

  private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam);

    HWND window_ = nullptr;
};

} // namespace quillon
