#pragma once

#include "app/Announcer.h"
#include "app/Program.h"
#include "ports/Display.h"
#include "win32/window/AddFeedWindow.h"
#include "win32/window/CheckFeedsWindow.h"
#include "win32/window/CompactControls.h"
#include "win32/window/ControlIds.h"
#include "win32/window/Dialogs.h"
#include "win32/window/FeedList.h"
#include "win32/window/KeyboardFocus.h"
#include "win32/window/MainControls.h"
#include "win32/window/MainMenu.h"
#include "win32/window/MainWindowSize.h"
#include "win32/window/OnTheAirWindow.h"
#include "win32/window/PreferenceFrames.h"
#include "win32/window/ScreenReader.h"
#include "win32/window/SplashWindow.h"
#include "win32/window/StatusBar.h"
#include "win32/window/Theme.h"
#include "win32/window/TrayIcon.h"

#include <windows.h>

#include <array>
#include <chrono>
#include <functional>
#include <memory>

namespace quillon {

/// The main window on the screen. It passes the user's actions to the program and then shows the program's
/// data.
class MainWindow : public Display {
  public:
    MainWindow();
    ~MainWindow() override;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    /// Creates the window, hidden. Returns false if Windows refuses.
    bool Create(Program& program);

    /// The owner for a message box; null while no window is visible.
    HWND BoxOwner();

    void Repaint() override;

    /// Shows the program's data.
    void Sync();

    /// Handles the thread's messages for about that long. Returns false once the program is ending.
    bool ServeEvents(std::chrono::milliseconds time);

    /// Handles messages until the program has ended.
    void Run();

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam);
    void RunCommand(int command);
    void Event(const std::function<void(Program&)>& event);
    void CreateControls();
    void Resized(WPARAM how);
    void Moved();
    void MoveVolume(int volume);
    void HideVolumeTip();
    void IconEvent(WORD what, POINT where);
    LRESULT RegisteredMessage(UINT message, WPARAM wparam, LPARAM lparam);
    bool IsUsersDoing() const;
    SIZE CompactSize() const;
    void LimitSize(MINMAXINFO& limits) const;
    void SetView(bool compact);
    void SyncOnTop();
    void ShowFirst();
    void BringUp();
    void MoveToDpi(UINT dpi, LPARAM address);
    void Restyle();
    void SetDpi(UINT dpi);
    void ControlEvent(int id, int code);
    bool Keystroke(MSG& message);
    LRESULT Notify(NMHDR& header);
    void Layout();
    void LayoutAndRedraw();
    void ShowRowMenu(HWND control, POINT where);

    void SyncOnce();
    void SyncTimers();
    void SyncVisibility();
    void SyncBusy();
    bool Dispatch(ULONGLONG until);

    Program* program_ = nullptr;
    const UINT show_message_ = RegisterWindowMessageW(ShowMessage);
    const UINT task_bar_created_ = RegisterWindowMessageW(L"TaskbarCreated");
    HWND window_ = nullptr;
    Theme theme_;
    std::unique_ptr<MainControls> controls_;
    std::unique_ptr<CompactControls> compact_controls_;
    std::unique_ptr<FeedList> list_;
    std::unique_ptr<StatusBar> status_;
    std::unique_ptr<PreferenceFrames> frames_;
    std::unique_ptr<KeyboardFocus> focus_;
    std::unique_ptr<ScreenReader> reader_;
    Announcer announcer_;
    MainMenu menu_;
    SplashWindow splash_;
    FsuipcStatusWindow fsuipc_status_;
    AddFeedWindow add_feed_;
    CheckFeedsWindow check_feeds_;
    OnTheAirWindow on_the_air_;
    TrayIcon icon_;
    std::string caption_;
    bool shown_ = false;
    bool compact_ = false;
    bool placing_ = false; // the program does, not the user
    bool on_top_ = false;
    SIZE full_size_{}; // of the full view, while the compact one is shown
    ViewRequest show_served_ = 0;
    ViewRequest list_focus_served_ = 0;
    bool syncing_ = false;
    bool sync_again_ = false;
    bool busy_ = false;
    MainWindowSize size_;
    std::array<FormTimer, 5> timers_{};
};

} // namespace quillon
