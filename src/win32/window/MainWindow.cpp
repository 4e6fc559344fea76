#include "win32/window/MainWindow.h"

#include "app/Commands.h"
#include "runtime/WhileSet.h"
#include "win32/system/Utf16.h"
#include "win32/window/ControlIds.h"
#include "win32/window/Controls.h"
#include "win32/window/ToolTips.h"

#include <windowsx.h>

#include <climits>
#include <commctrl.h>
#include <shellapi.h>
#include <utility>

namespace quillon {

namespace {

constexpr int LeastListHeight = 80; // at 96 dpi, like the next
constexpr int CompactWidth = 400;
constexpr UINT_PTR VolumeTipTimer = 100; // beside the program's timers
constexpr DWORD CompactStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;

} // namespace

MainWindow::MainWindow()
    : fsuipc_status_([this] { RunCommand(Command::frmShow_FSUIPC_Command1); }),
      add_feed_([this] { Sync(); }),
      check_feeds_([this] { Sync(); }),
      on_the_air_([this] { Sync(); }) {}
MainWindow::~MainWindow() = default;

bool MainWindow::Create(Program& program) {
    program_ = &program;
    const INITCOMMONCONTROLSEX classes{sizeof classes,
                                       ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);

    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = Procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.hIcon = LoadIconW(window_class.hInstance, MAKEINTRESOURCEW(1));
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window_class.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
    window_class.lpszClassName = MainWindowClass;
    RegisterClassExW(&window_class);
    CreateWindowExW(WS_EX_CONTROLPARENT, MainWindowClass, L"Quillon", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                    CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, menu_.Bar(),
                    window_class.hInstance, this);
    if (window_ == nullptr) return false;
    ChangeWindowMessageFilterEx(window_, show_message_, MSGFLT_ALLOW, nullptr); // from one run as another user
    MatchTitleToApps(window_);
    MainWindowSize::SetFirst(window_, theme_, SizeOf(theme_, controls_->Rows()).cx);
    Sync();
    return true;
}

HWND MainWindow::BoxOwner() {
    if (program_->State().form.Hidden) program_->ShowWindow();
    Sync();
    if (add_feed_.Window() != nullptr) return add_feed_.Window();
    if (IsWindowVisible(window_)) return window_;
    return splash_.Window();
}

LRESULT CALLBACK MainWindow::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
        auto* self = static_cast<MainWindow*>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams);
        self->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcW(window, message, wparam, lparam);
    try {
        return self->Handle(message, wparam, lparam);
    } catch (...) { // nothing may be thrown through Windows
        return 0;
    }
}

LRESULT MainWindow::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
    case WM_CREATE:
        CreateControls();
        return 0;
    case WM_SIZE:
        Resized(wparam);
        return 0;
    case WM_MOVE:
        Moved();
        return 0;
    case WM_GETMINMAXINFO:
        if (focus_) LimitSize(*reinterpret_cast<MINMAXINFO*>(lparam));
        return 0;
    case WM_DPICHANGED:
        MoveToDpi(HIWORD(wparam), lparam);
        return 0;
    case WM_SYSCOLORCHANGE:
        ForwardSystemColors(window_);
        [[fallthrough]];
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
        Restyle();
        return 0;
    case WM_TIMER:
        if (wparam == VolumeTipTimer) HideVolumeTip();
        Event([wparam](Program& program) { program.TimerTick(static_cast<int>(wparam)); });
        return 0;
    case WM_INITMENUPOPUP:
        if (menu_.HasSoundDevices(reinterpret_cast<HMENU>(wparam)))
            Event([](Program& program) { program.OpenMenu(); });
        return 0;
    case WM_COMMAND:
        ControlEvent(LOWORD(wparam), HIWORD(wparam));
        return 0;
    case WM_NOTIFY:
        return Notify(*reinterpret_cast<NMHDR*>(lparam));
    case WM_HSCROLL:
        MoveVolume(controls_->VolumePosition());
        return 0;
    case TrayIcon::Message:
        IconEvent(LOWORD(lparam), {GET_X_LPARAM(wparam), GET_Y_LPARAM(wparam)});
        return 0;
    case WM_CONTEXTMENU:
        ShowRowMenu(reinterpret_cast<HWND>(wparam), {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)});
        return 0;
    case WM_NEXTDLGCTL:
        focus_->Move(wparam, lparam);
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wparam) == WA_INACTIVE) focus_->Save();
        return DefWindowProcW(window_, message, wparam, lparam);
    case WM_LBUTTONDOWN:
        RunCommand(Command::Form_Click);
        return 0;
    case WM_SETFOCUS:
        focus_->Restore();
        return 0;
    case WM_CLOSE:
        RunCommand(Command::mnuQuit);
        return 0;
    case WM_ENDSESSION:
        if (wparam != FALSE) program_->EndSession();
        return 0;
    case WM_DESTROY:
        window_ = nullptr;
        PostQuitMessage(0);
        return 0;
    default:
        return RegisteredMessage(message, wparam, lparam);
    }
}

LRESULT MainWindow::RegisteredMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == show_message_ && shown_) Event([](Program& program) { program.ShowWindow(); });
    if (message == task_bar_created_) {
        icon_.Renew();
        Sync();
    }
    return DefWindowProcW(window_, message, wparam, lparam);
}

void MainWindow::IconEvent(WORD what, POINT where) {
    if (what == NIN_SELECT || what == NIN_KEYSELECT) RunCommand(Command::ShowWindow);
    if (what == WM_CONTEXTMENU) RunCommand(MainMenu::AskForIcon(window_, where, *program_));
}

void MainWindow::MoveVolume(int volume) {
    constexpr UINT TipMs = 1500;
    Event([volume](Program& program) { program.SetVolume(volume); });
    controls_->ShowVolumeTip(true);
    SetTimer(window_, VolumeTipTimer, TipMs, nullptr);
}

void MainWindow::HideVolumeTip() {
    KillTimer(window_, VolumeTipTimer);
    controls_->ShowVolumeTip(false);
}

void MainWindow::RunCommand(int command) {
    program_->Run(command);
    Sync();
}

void MainWindow::Event(const std::function<void(Program&)>& event) {
    event(*program_);
    Sync();
}

/// Sizes and places before the window is shown are not the user's.
bool MainWindow::IsUsersDoing() const {
    return shown_ && !placing_ && IsWindowVisible(window_) && !IsIconic(window_) && !IsZoomed(window_);
}

void MainWindow::Resized(WPARAM how) {
    if (!shown_) return;
    Layout();
    if (how == SIZE_MINIMIZED) Event([this](Program& program) { program.MinimiseWindow(icon_.IsThere()); });
    if (IsUsersDoing() && !compact_) program_->ResizeWindow(size_.Read(window_, theme_));
}

void MainWindow::Moved() {
    if (IsUsersDoing()) program_->MoveWindow(MainWindowSize::PlaceOf(window_));
}

SIZE MainWindow::CompactSize() const {
    RECT area{0, 0, theme_.Px(CompactWidth), SizeOf(theme_, compact_controls_->Rows(*controls_)).cy};
    AdjustWindowRectExForDpi(&area, CompactStyle, FALSE, WS_EX_CONTROLPARENT, theme_.Dpi());
    return {area.right - area.left, area.bottom - area.top};
}

void MainWindow::LimitSize(MINMAXINFO& limits) const {
    if (!compact_) return MainWindowSize::Limit(limits, theme_, SizeOf(theme_, controls_->Rows()).cx);
    const SIZE size = CompactSize();
    limits.ptMinTrackSize = limits.ptMaxTrackSize = {size.cx, size.cy};
}

/// Changes the controls, and then size and place to those of the other view.
void MainWindow::SetView(bool compact) {
    const WhileSet placing(placing_);
    if (shown_ && IsZoomed(window_)) ShowWindow(window_, SW_RESTORE);
    RECT area{};
    GetWindowRect(window_, &area);
    if (compact) full_size_ = {area.right - area.left, area.bottom - area.top};
    focus_->Save();
    compact_ = compact;
    controls_->SetCompact(compact);
    compact_controls_->Show(compact);
    ShowControls({list_->Window(), status_->Window()}, !compact);
    SetWindowLongPtrW(window_, GWL_STYLE,
                      static_cast<LONG_PTR>((compact ? CompactStyle : WS_OVERLAPPEDWINDOW) |
                                            (static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)) &
                                             (WS_VISIBLE | WS_MINIMIZE | WS_DISABLED | WS_CLIPCHILDREN))));
    SetMenu(window_, compact ? nullptr : menu_.Bar());
    const SIZE size = compact ? CompactSize() : full_size_;
    SetWindowPos(window_, nullptr, 0, 0, size.cx, size.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    const frmATC& form = program_->State().form;
    MainWindowSize::MoveTo(window_, compact ? form.CompactPlace : form.Place);
    LayoutAndRedraw();
    if (shown_ && GetActiveWindow() == window_) focus_->Restore();
}

/// Any program can send this message, with an address that holds nothing here.
void MainWindow::MoveToDpi(UINT dpi, LPARAM address) {
    constexpr UINT LeastDpi = 48;
    constexpr UINT MostDpi = 960;
    RECT area{};
    if (dpi < LeastDpi || dpi > MostDpi ||
        !ReadProcessMemory(GetCurrentProcess(), reinterpret_cast<const void*>(address), &area, sizeof area,
                           nullptr))
        return;
    SetDpi(dpi);
    SetWindowPos(window_, nullptr, area.left, area.top, area.right - area.left, area.bottom - area.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void MainWindow::Restyle() {
    MatchTitleToApps(window_);
    if (focus_) SetDpi(theme_.Dpi()); // all controls have been created
}

/// Opens the row's menu, at the row itself for the menu key, whose point is (-1, -1). The command applies to
/// the row the menu was opened for, even if tuning selects another meanwhile.
void MainWindow::ShowRowMenu(HWND control, POINT where) {
    const ListView& list = program_->State().form.lvwDB;
    const auto row = list_->SelectedRow();
    if (control != list_->Window() || !row || program_->State().Busy) return;
    if (where.x == -1 && where.y == -1) where = list_->PlaceOf(*row);
    const std::uint64_t revision = list.Revision();
    const int chosen = MainMenu::AskForRow(window_, where, program_->State());
    if (chosen == 0 || list.Revision() != revision) return;
    program_->SelectRow(row);
    RunCommand(chosen);
}

void MainWindow::CreateControls() {
    theme_ = Theme(GetDpiForWindow(window_));
    HWND tips = CreateToolTips();
    controls_ = std::make_unique<MainControls>(window_, tips, theme_);
    frames_ = std::make_unique<PreferenceFrames>(window_);
    list_ = std::make_unique<FeedList>(window_, tips, program_->State().form.lvwDB);
    status_ = std::make_unique<StatusBar>(window_, tips);
    compact_controls_ = std::make_unique<CompactControls>(window_);
    reader_ = std::make_unique<ScreenReader>(window_);
    focus_ = std::make_unique<KeyboardFocus>(window_, *list_, *controls_, *frames_);
    compact_controls_->SetTheme(theme_);
    list_->SetTheme(theme_);
    status_->SetTheme(theme_);
}

void MainWindow::SetDpi(UINT dpi) {
    theme_ = Theme(dpi);
    controls_->SetTheme(theme_);
    compact_controls_->SetTheme(theme_);
    list_->SetTheme(theme_);
    status_->SetTheme(theme_);
    frames_->SetTheme(theme_);
    LayoutAndRedraw();
}

void MainWindow::ControlEvent(int id, int code) {
    if ((id == IdCboMin || id == IdCboMax) && code == CBN_SELENDOK) {
        const auto entry = frames_->PickedEntry(id);
        if (entry) (program_->*(id == IdCboMin ? &Program::cboMin_Click : &Program::cboMax_Click))(*entry);
    }
    // The code is 0 from menus and pictures, as from buttons, and 1 from accelerators.
    if (code == BN_CLICKED || code == 1) program_->Run(id);
    Sync();
}

LRESULT MainWindow::Notify(NMHDR& header) {
    if (!list_) return 0;
    if (const auto resized = list_->ResizedColumn(header))
        program_->ResizeColumn(resized->first, resized->second);
    if (header.hwndFrom != list_->Window()) return 0;
    if (!list_->UserIsSelecting()) return list_->Notify(header);
    switch (header.code) {
    case LVN_ITEMCHANGED:
        if ((reinterpret_cast<NMLISTVIEW&>(header).uChanged & LVIF_STATE) == 0) return 0;
        program_->SelectRow(list_->SelectedRow());
        break;
    case NM_CLICK:
        if (reinterpret_cast<NMITEMACTIVATE&>(header).iItem < 0) return 0;
        program_->Run(Command::lvwDB_ItemClick);
        break;
    case NM_DBLCLK:
        if (reinterpret_cast<NMITEMACTIVATE&>(header).iItem < 0) return 0;
        program_->lvwDB_DblClick(static_cast<std::size_t>(reinterpret_cast<NMITEMACTIVATE&>(header).iItem));
        break;
    case LVN_COLUMNCLICK:
        program_->lvwDB_ColumnClick(static_cast<Column>(reinterpret_cast<NMLISTVIEW&>(header).iSubItem));
        break;
    default:
        return list_->Notify(header);
    }
    Sync();
    return 0;
}

void MainWindow::Layout() {
    RECT area{};
    GetClientRect(window_, &area);
    if (area.right == 0) return; // minimised
    if (compact_) return PlaceRows(theme_, compact_controls_->Rows(*controls_), {area.right, area.bottom});
    status_->Place(theme_);
    std::vector<Row> rows = controls_->Rows();
    for (const Row& frame : frames_->Rows()) rows.push_back(frame);
    rows.push_back({{{list_->Window(), Grows}}, Grows, LeastListHeight});
    PlaceRows(theme_, rows, {area.right, area.bottom - HeightOf(status_->Window())});
    // Bottom of the z-order: last in tab order, even if frames were created after it.
    SetWindowPos(list_->Window(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    list_->SyncColumns();
}

void MainWindow::LayoutAndRedraw() {
    Layout();
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void MainWindow::Repaint() {
    Sync();
    if (window_ != nullptr) UpdateWindow(window_);
    if (splash_.Window() != nullptr) UpdateWindow(splash_.Window());
}

/// Windows send notifications while they are being changed, which lead back here. Such a call is deferred to a
/// second pass, so that a window that is being created is not created twice.
void MainWindow::Sync() {
    sync_again_ = syncing_;
    if (syncing_) return;
    const WhileSet syncing(syncing_);
    try {
        SyncOnce();
        if (sync_again_) SyncOnce();
    } catch (...) {
        // The next update shows what this one could not, which comes ten times a second.
    }
}

void MainWindow::SyncOnce() {
    if (window_ == nullptr || !status_) return; // controls also notify while they are being created
    const ProgramState& state = program_->State();
    splash_.Show(state.splash.Visible);
    if (state.Ended) {
        DestroyWindow(window_);
        return;
    }
    if (caption_ != state.form.Caption) {
        caption_ = state.form.Caption;
        SetWindowTextW(window_, Wide(caption_).c_str());
    }
    menu_.Sync(state);
    SyncBusy();
    controls_->Sync(state);
    compact_controls_->Sync(state.form);
    if (frames_->Sync(state.form, theme_) && shown_) LayoutAndRedraw();
    fsuipc_status_.Sync(window_, state.fsuipc_status);
    add_feed_.Sync(window_, *program_);
    check_feeds_.Sync(window_, *program_);
    on_the_air_.Sync(window_, *program_);
    status_->Sync(state.form, theme_);
    list_->Sync();
    if (const std::string news = announcer_.Follow(state); shown_ && !news.empty()) reader_->Say(news);
    SyncTimers();
    SyncVisibility();
}

void MainWindow::SyncTimers() {
    const auto& wanted = program_->State().cycle.Timers;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        if (wanted[i] == timers_[i]) continue;
        timers_[i] = wanted[i];
        if (wanted[i].Enabled)
            SetTimer(window_, i + 1, static_cast<UINT>(wanted[i].Interval), nullptr);
        else
            KillTimer(window_, i + 1);
    }
}

void MainWindow::SyncVisibility() {
    const frmATC& form = program_->State().form;
    icon_.Sync(window_, theme_, IconFor(program_->State()));
    if (!compact_) size_.Sync(window_, theme_, form.Size);
    if (compact_ != form.Compact && form.Visible) SetView(form.Compact);
    if (std::exchange(on_top_, program_->State().marks.OnTop) != program_->State().marks.OnTop) SyncOnTop();
    if (form.Visible && !shown_) ShowFirst();
    if (shown_ && form.Hidden && IsWindowVisible(window_)) ShowWindow(window_, SW_HIDE);
    if (shown_ && std::exchange(show_served_, form.ShowRequest) != form.ShowRequest) BringUp();
    if (form.Visible && std::exchange(list_focus_served_, form.ListFocusRequest) != form.ListFocusRequest)
        SetFocus(compact_ ? controls_->PlayerPane() : list_->Window());
}

void MainWindow::SyncOnTop() {
    SetWindowPos(window_, on_top_ ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void MainWindow::ShowFirst() {
    const ProgramState& state = program_->State();
    if (!compact_ && state.form.Place) MainWindowSize::MoveTo(window_, state.form.Place);
    Layout();
    shown_ = true;
    ShowWindow(window_, state.marks.StartMinimised ? SW_SHOWMINNOACTIVE : SW_SHOWNORMAL);
    UpdateWindow(window_);
}

void MainWindow::BringUp() {
    ShowWindow(window_, IsIconic(window_) ? SW_RESTORE : SW_SHOW);
    SetForegroundWindow(GetLastActivePopup(window_));
}

/// The window itself stays enabled: it can be moved and closed.
void MainWindow::SyncBusy() {
    const ProgramState& state = program_->State();
    const bool busy = state.Busy && !state.add_feed.Visible; // that dialog disables the whole window
    if (busy_ == busy) return;
    busy_ = busy;
    if (busy_) focus_->Save();
    for (HWND child = GetWindow(window_, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        if (GetDlgCtrlID(child) != Command::mnuQuit) EnableWindow(child, busy_ ? FALSE : TRUE);
    if (!busy_ && GetActiveWindow() == window_) focus_->Restore();
}

/// Handles pending messages until the queue is empty or GetTickCount64 reaches `until`: a timer whose handler
/// takes longer than its interval, as with a hung simulator, is always pending. Returns false once the program
/// is ending.
bool MainWindow::Dispatch(ULONGLONG until) {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) return false;
        if (window_ == nullptr || !Keystroke(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        if (GetTickCount64() >= until) break;
    }
    return !program_->State().Ended;
}

bool MainWindow::Keystroke(MSG& message) {
    HWND air = on_the_air_.Window(); // open for a whole flight, so the main window's keys work there, too
    if (air != nullptr && IsChild(air, message.hwnd) && menu_.Translate(window_, message)) return true;
    for (HWND modeless : {fsuipc_status_.Window(), check_feeds_.Window(), air})
        if (modeless != nullptr && IsDialogMessageW(modeless, &message)) return true;
    if (add_feed_.Window() != nullptr) return IsDialogMessageW(add_feed_.Window(), &message) != 0;
    if (menu_.Translate(window_, message)) return true;
    if (const auto volume = controls_->WantedVolume(message)) {
        MoveVolume(*volume);
        return true;
    }
    if (compact_ && message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) {
        RunCommand(Command::CompactView);
        return true;
    }
    if (message.message == WM_KEYDOWN && message.wParam == VK_F6) {
        focus_->NextPane(GetKeyState(VK_SHIFT) < 0);
        return true;
    }
    if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN && message.hwnd == list_->Window()) {
        RunCommand(Command::lvwDB_ItemClick);
        return true;
    }
    return IsDialogMessageW(window_, &message) != 0;
}

bool MainWindow::ServeEvents(std::chrono::milliseconds time) {
    Sync();
    const ULONGLONG deadline = GetTickCount64() + static_cast<ULONGLONG>(time.count());
    do {
        if (!Dispatch(deadline)) return false;
        const ULONGLONG now = GetTickCount64();
        if (now >= deadline) return true;
        MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(deadline - now), QS_ALLINPUT,
                                    MWMO_INPUTAVAILABLE);
    } while (true);
}

void MainWindow::Run() {
    Sync();
    while (window_ != nullptr && Dispatch(ULLONG_MAX))
        MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
}

} // namespace quillon
