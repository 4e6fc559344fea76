#pragma once

#include "app/WindowView.h"
#include "win32/window/Theme.h"

#include <windows.h>

namespace quillon {

/// The icon in the notification area.
class TrayIcon {
  public:
    /// What it sends to its window; the low word of the message's lparam says what happened.
    static constexpr UINT Message = WM_APP + 1;

    TrayIcon() = default;
    ~TrayIcon() { Remove(); }
    TrayIcon(const TrayIcon&) = delete;
    TrayIcon& operator=(const TrayIcon&) = delete;

    /// Adds, changes or removes the icon. One that could not be added is tried again after `Renew`.
    void Sync(HWND window, const Theme& theme, const NotificationIcon& icon);

    /// The task bar has been started anew and knows nothing of the icon.
    void Renew() { added_ = tried_ = false; }

    /// Whether there is one to be clicked.
    bool IsThere() const { return added_; }

  private:
    void Remove();

    HWND window_ = nullptr;
    NotificationIcon shown_;
    IconHandle picture_;
    bool tried_ = false;
    bool added_ = false;
};

} // namespace quillon
