#include "win32/MainWindow.h"

#include "win32/ControlIds.h"
#include "win32/Controls.h"
#include "win32/ToolTips.h"
#include "win32/Utf16.h"

#include <windowsx.h>

#include <algorithm>
#include <commctrl.h>
#include <numeric>
#include <vector>

namespace quillon {

namespace {

constexpr int LeastListHeight = 80; // at 96 dpi
constexpr int LeastHeight = 370;    // room for such a list below both preference frames
constexpr int FirstHeight = 480;

/// The handlers of everything that is clicked and needs no further word.
struct Click {
    int id;
    void (Program::*handler)();
};
constexpr Click Clicks[] = {
    {IdPlay, &Program::cmdPlay_Click},
    {IdPause, &Program::cmdPause_Click},
    {IdStop, &Program::cmdStop_Click},
    {IdQuit, &Program::mnuQuit_Click},
    {IdLiveAtcPicture, &Program::picATCNet_Click},
    {IdLiveAtcLabel, &Program::picATCNet_Click},
    {IdComClose, &Program::cmdComClose_Click},
    {IdClose2, &Program::cmdClose2_Click},
    {IdMnuQuit, &Program::mnuQuit_Click},
    {IdMnuPrint, &Program::mnuPrint_Click},
    {IdMnuSearch, &Program::mnuSearch_Click},
    {IdMnuCitySearch, &Program::mnuCitySearch_Click},
    {IdMnuSearchAgain, &Program::mnuSearchAgain_Click},
    {IdMnuSelComm, &Program::mnuSelComm_Click},
    {IdMnuRange, &Program::mnuRange_Click},
    {IdMnuSetMute, &Program::mnuSetMute_Click},
    {IdMnuRecordedChatter, &Program::mnuRecordedChatter_Click},
    {IdMnuReload, &Program::mnuReload_Click},
    {IdMnuFsuipc, &Program::mnuFSUPIC_Click},
    {IdMnuAddAtc, &Program::mnuAddATC_Click},
    {IdMnuBackup, &Program::mnuBackup_Click},
    {IdMnuRestore, &Program::mnuRestore_Click},
    {IdMnuEditData, &Program::mnuEditData_Click},
    {IdMnuCheckFeeds, &Program::mnuCheckFeeds_Click},
    {IdMnuPlayFeed, &Program::mnuPlayFeed_Click},
    {IdMnuTuneFeed, &Program::mnuTuneFeed_Click},
    {IdMnuCopyAddress, &Program::mnuCopyAddress_Click},
    {IdMnuContents, &Program::mnuContents_Click},
    {IdMnuFolders, &Program::mnuFolders_Click},
    {IdMnuAbout, &Program::mnuAbout_Click},
};

/// Whether a control, or the one it is part of, is in the same group as the pane's first.
bool IsInPane(HWND window, HWND pane, HWND control) {
    HWND member = pane;
    do {
        if (member == control || IsChild(member, control)) return true;
        member = GetNextDlgGroupItem(window, member, FALSE);
    } while (member != nullptr && member != pane);
    return false;
}

} // namespace

MainWindow::MainWindow()
    : fsuipc_status_([this] {
          program_->frmShow_FSUIPC_Command1_Click();
          Sync();
      }),
      add_feed_([this] { Sync(); }),
      check_feeds_([this] { Sync(); }) {}
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
    CreateWindowExW(WS_EX_CONTROLPARENT, MainWindowClass, L"Quillon", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                    CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, menu_.Bar(), window_class.hInstance,
                    this);
    if (window_ == nullptr) return false;
    MatchTitleToApps(window_);
    SetInitialSize();
    Sync();
    return true;
}

HWND MainWindow::BoxOwner() {
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
    return self != nullptr ? self->Handle(message, wparam, lparam)
                           : DefWindowProcW(window, message, wparam, lparam);
}

LRESULT MainWindow::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
    case WM_CREATE:
        CreateControls();
        return 0;
    case WM_SIZE:
        Layout();
        if (wparam == SIZE_RESTORED) KeepSize();
        return 0;
    case WM_GETMINMAXINFO:
        if (controls_) {
            auto& limits = *reinterpret_cast<MINMAXINFO*>(lparam);
            limits.ptMinTrackSize = {controls_->LeastWidth(theme_) + theme_.Px(16), theme_.Px(LeastHeight)};
        }
        return 0;
    case WM_DPICHANGED: {
        const RECT& area = *reinterpret_cast<RECT*>(lparam);
        SetDpi(HIWORD(wparam));
        SetWindowPos(window_, nullptr, area.left, area.top, area.right - area.left, area.bottom - area.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
        return 0;
    }
    case WM_SYSCOLORCHANGE:
        TellSystemColors(window_);
        [[fallthrough]];
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
        MatchTitleToApps(window_);
        if (controls_) SetDpi(theme_.Dpi());
        return 0;
    case WM_TIMER:
        program_->Timer_Timer(static_cast<int>(wparam));
        Sync();
        return 0;
    case WM_COMMAND:
        Command(LOWORD(wparam), HIWORD(wparam));
        return 0;
    case WM_NOTIFY:
        return Notify(*reinterpret_cast<NMHDR*>(lparam));
    case WM_HSCROLL:
        program_->sldVolume_Change(controls_->VolumePosition());
        Sync();
        return 0;
    case WM_CONTEXTMENU:
        ShowRowMenu(reinterpret_cast<HWND>(wparam), {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)});
        return 0;
    case WM_NEXTDLGCTL:
        MoveFocus(wparam, lparam);
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wparam) == WA_INACTIVE && IsChild(window_, GetFocus())) focus_ = GetFocus();
        return DefWindowProcW(window_, message, wparam, lparam);
    case WM_LBUTTONDOWN:
        program_->Form_Click();
        Sync();
        return 0;
    case WM_SETFOCUS:
        TakeFocus();
        return 0;
    case WM_CLOSE:
        program_->mnuQuit_Click();
        Sync();
        return 0;
    case WM_ENDSESSION:
        if (wparam != FALSE) program_->EndSession();
        return 0;
    case WM_DESTROY:
        window_ = nullptr;
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window_, message, wparam, lparam);
    }
}

/// The size counts from the moment on at which the user can change it.
void MainWindow::KeepSize() {
    if (!IsWindowVisible(window_)) return;
    RECT area{};
    GetWindowRect(window_, &area);
    size_ = {MulDiv(area.right - area.left, 96, static_cast<int>(theme_.Dpi())),
             MulDiv(area.bottom - area.top, 96, static_cast<int>(theme_.Dpi()))};
    program_->Form_Resize(size_);
}

void MainWindow::SyncSize() {
    const WindowSize size = program_->State().form.Size;
    if (size_ == size) return;
    size_ = size;
    RECT screen{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    SetWindowPos(window_, nullptr, 0, 0,
                 std::min(theme_.Px(size.Width), static_cast<int>(screen.right - screen.left)),
                 std::min(theme_.Px(size.Height), static_cast<int>(screen.bottom - screen.top)),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// Where the keyboard was. What had it may be hidden by now, as a frame is by its own button.
void MainWindow::TakeFocus() {
    SetFocus(focus_ != nullptr && IsWindowVisible(focus_) ? focus_ : list_->Window());
}

/// A label's mnemonic moves the focus through this message, which only dialogs answer by themselves.
void MainWindow::MoveFocus(WPARAM wparam, LPARAM lparam) {
    HWND next = LOWORD(lparam) != 0 ? reinterpret_cast<HWND>(wparam)
                                    : GetNextDlgTabItem(window_, GetFocus(), wparam != 0 ? TRUE : FALSE);
    SetFocus(next);
}

/// A point of (-1, -1) is the menu key's: the menu then opens at the row. While it is open, tuning may select
/// another row; what is chosen is meant for the one it was opened for.
void MainWindow::ShowRowMenu(HWND control, POINT where) {
    const ListView& list = program_->State().form.lvwDB;
    const auto row = list_->SelectedRow();
    if (control != list_->Window() || !row || program_->State().Busy) return;
    if (where.x == -1 && where.y == -1) where = list_->PlaceOf(*row);
    const std::uint64_t revision = list.Revision();
    const int chosen = MainMenu::AskForRow(window_, where, program_->State().form);
    if (chosen == 0 || list.Revision() != revision) return;
    program_->lvwDB_Select(row);
    Clicked(chosen);
    Sync();
}

/// F6: the list, the selection mode, the player, and the preference frames that are shown, in a circle.
void MainWindow::NextPane(bool back) {
    std::vector<HWND> panes{list_->Window(), controls_->ModePane(), controls_->PlayerPane()};
    for (HWND frame : frames_->Panes()) panes.push_back(frame);
    const HWND focus = GetFocus();
    std::size_t current = 0;
    for (std::size_t i = 0; i < panes.size(); ++i)
        if (IsInPane(window_, panes[i], focus)) current = i;
    SetFocus(panes[(current + (back ? panes.size() - 1 : 1)) % panes.size()]);
}

void MainWindow::CreateControls() {
    theme_ = Theme(GetDpiForWindow(window_));
    controls_ = std::make_unique<MainControls>(window_, theme_);
    frames_ = std::make_unique<PreferenceFrames>(window_);
    list_ = std::make_unique<FeedList>(window_, program_->State().form.lvwDB);
    status_ = std::make_unique<StatusBar>(window_);
    list_->SetTheme(theme_);
    status_->SetTheme(theme_);
    frames_->SetTheme(theme_);
}

void MainWindow::SetDpi(UINT dpi) {
    theme_ = Theme(dpi);
    controls_->SetTheme(theme_);
    list_->SetTheme(theme_);
    status_->SetTheme(theme_);
    frames_->SetTheme(theme_);
    Layout();
    InvalidateRect(window_, nullptr, TRUE);
}

void MainWindow::Command(int id, int code) {
    if (id == IdCboMin && code == CBN_SELENDOK) program_->cboMin_Click(frames_->PickedEntry(id));
    if (id == IdCboMax && code == CBN_SELENDOK) program_->cboMax_Click(frames_->PickedEntry(id));
    // Menus and pictures say 0 as buttons do; keys that stand for a command say 1.
    if (code == BN_CLICKED || code == 1) Clicked(id);
    Sync();
}

void MainWindow::Clicked(int id) {
    const frmATC& form = program_->State().form;
    // A radio button also says that it was clicked when it only gets the keyboard.
    if (id == IdOptAuto && form.optManual()) program_->optAuto_Click();
    if (id == IdOptManual && !form.optManual()) program_->optManual_Click();
    const int com = id - IdOptCom1 + 1;
    if (com >= 1 && com <= 4 && form.optCom.Value != com)
        program_->optCom_Click(static_cast<std::int16_t>(com));
    for (const Click& click : Clicks)
        if (click.id == id) (program_->*click.handler)();
}

LRESULT MainWindow::Notify(NMHDR& header) {
    if (!list_) return 0;
    if (const auto resized = list_->ResizedColumn(header))
        program_->lvwDB_ColumnResize(resized->first, resized->second);
    if (header.hwndFrom != list_->Window()) return 0;
    if (!list_->UserIsSelecting()) return list_->Notify(header);
    switch (header.code) {
    case LVN_ITEMCHANGED:
        if ((reinterpret_cast<NMLISTVIEW&>(header).uChanged & LVIF_STATE) == 0) return 0;
        program_->lvwDB_Select(list_->SelectedRow());
        break;
    case NM_CLICK:
        if (reinterpret_cast<NMITEMACTIVATE&>(header).iItem < 0) return 0;
        program_->lvwDB_ItemClick();
        break;
    case NM_DBLCLK:
        program_->lvwDB_DblClick();
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
    if (!status_) return;
    RECT area{};
    GetClientRect(window_, &area);
    if (area.right == 0) return; // minimised
    status_->Place(theme_);
    const int band = controls_->Place(theme_, area.right);
    const int top = band + frames_->Place(theme_, band);
    const int height =
        std::max(theme_.Px(LeastListHeight), static_cast<int>(area.bottom) - top - status_->Height());
    SetWindowPos(list_->Window(), nullptr, 0, top, area.right, height, SWP_NOZORDER | SWP_NOACTIVATE);
    list_->SyncColumns();
}

void MainWindow::SetInitialSize() {
    const int twips = std::accumulate(PanelWidths.begin(), PanelWidths.end(), 0);
    RECT area{0, 0, std::max(theme_.TwipsToPx(twips), controls_->LeastWidth(theme_)) + theme_.Px(24),
              theme_.Px(FirstHeight)};
    AdjustWindowRectExForDpi(&area, WS_OVERLAPPEDWINDOW, TRUE, WS_EX_CONTROLPARENT, theme_.Dpi());
    SetWindowPos(window_, nullptr, 0, 0, area.right - area.left, area.bottom - area.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void MainWindow::Repaint() {
    Sync();
    if (window_ != nullptr) UpdateWindow(window_);
    if (splash_.Window() != nullptr) UpdateWindow(splash_.Window());
}

/// What the windows report while they are changed comes back here. A second pass then follows: a window that is
/// just being made must not be made twice.
void MainWindow::Sync() {
    sync_again_ = syncing_;
    if (syncing_) return;
    syncing_ = true;
    SyncOnce();
    if (sync_again_) SyncOnce();
    syncing_ = false;
}

void MainWindow::SyncOnce() {
    if (window_ == nullptr || !status_) return; // what is being made reports, too
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
    menu_.Sync(state.form, state.Busy);
    SyncBusy();
    controls_->Sync(state.form);
    if (frames_->Sync(state.form)) {
        Layout();
        RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    }
    fsuipc_status_.Sync(window_, state.fsuipcStatus);
    add_feed_.Sync(window_, *program_);
    check_feeds_.Sync(window_, *program_);
    status_->Sync(state.form.StatusBar1, theme_);
    list_->Sync();
    SyncTimers();
    SyncVisibility();
}

void MainWindow::SyncTimers() {
    const auto& wanted = program_->State().form.Timers;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        if (wanted[i].Enabled == timers_[i].Enabled && wanted[i].Interval == timers_[i].Interval) continue;
        timers_[i] = wanted[i];
        if (wanted[i].Enabled)
            SetTimer(window_, i + 1, static_cast<UINT>(wanted[i].Interval), nullptr);
        else
            KillTimer(window_, i + 1);
    }
}

void MainWindow::SyncVisibility() {
    const frmATC& form = program_->State().form;
    SyncSize();
    if (form.Visible && !IsWindowVisible(window_)) {
        ShowWindow(window_, SW_SHOWNORMAL);
        UpdateWindow(window_);
    }
    if (form.lvwDBFocus && form.Visible) {
        SetFocus(list_->Window());
        program_->FocusTaken();
    }
}

/// The window itself stays in reach: it can be moved and closed.
void MainWindow::SyncBusy() {
    const ProgramState& state = program_->State();
    const bool busy = state.Busy && !state.addFeed.Visible; // that dialog blocks the window as a whole
    if (busy_ == busy) return;
    busy_ = busy;
    if (busy_ && IsChild(window_, GetFocus())) focus_ = GetFocus();
    for (HWND child = GetWindow(window_, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        if (GetDlgCtrlID(child) != IdQuit) EnableWindow(child, busy_ ? FALSE : TRUE);
    if (!busy_ && GetActiveWindow() == window_) TakeFocus();
}

bool MainWindow::Dispatch() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) return false;
        if (window_ != nullptr && Keystroke(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return !program_->State().Ended;
}

bool MainWindow::Keystroke(MSG& message) {
    for (HWND modeless : {fsuipc_status_.Window(), check_feeds_.Window()})
        if (modeless != nullptr && IsDialogMessageW(modeless, &message)) return true;
    if (add_feed_.Window() != nullptr) return IsDialogMessageW(add_feed_.Window(), &message) != 0;
    if (menu_.Translate(window_, message)) return true;
    if (message.message == WM_KEYDOWN && message.wParam == VK_F6) {
        NextPane(GetKeyState(VK_SHIFT) < 0);
        return true;
    }
    if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN && message.hwnd == list_->Window()) {
        program_->lvwDB_ItemClick();
        Sync();
        return true;
    }
    return IsDialogMessageW(window_, &message) != 0;
}

bool MainWindow::ServeEvents(std::chrono::milliseconds time) {
    Sync();
    const ULONGLONG deadline = GetTickCount64() + static_cast<ULONGLONG>(time.count());
    do {
        if (!Dispatch()) return false;
        const ULONGLONG now = GetTickCount64();
        if (now >= deadline) return true;
        MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(deadline - now), QS_ALLINPUT,
                                    MWMO_INPUTAVAILABLE);
    } while (true);
}

void MainWindow::Run() {
    Sync();
    while (window_ != nullptr && Dispatch())
        MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
}

} // namespace quillon
