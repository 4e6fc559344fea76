#pragma once

#include "win32/window/Theme.h"

#include <windows.h>

namespace quillon {

/// The splash screen, shown while the program starts.
class SplashWindow {
  public:
    SplashWindow() = default;
    ~SplashWindow() { Show(false); }
    SplashWindow(const SplashWindow&) = delete;
    SplashWindow& operator=(const SplashWindow&) = delete;

    void Show(bool visible);
    HWND Window() const { return window_; }

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    void Open();
    void Paint() const;

    HWND window_ = nullptr;
    Theme theme_;
};

} // namespace quillon
