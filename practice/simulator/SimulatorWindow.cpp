#include "SimulatorWindow.h"

#include "../InjectedFault.h"
#include "runtime/Number.h"
#include "simlink/LinkTexts.h"
#include "win32/system/Utf16.h"

#include <algorithm>
#include <commctrl.h>

namespace practice {

namespace {

using quillon::Narrow;
using quillon::Wide;

constexpr int FirstBox = 100; // a field's box has this plus its number
constexpr int FlyToBox = FirstBox + FieldCount;
constexpr int StatusBar = 99;
constexpr int Unnamed = -1;
constexpr UINT MemoryChanged = WM_APP;
constexpr UINT TrafficTimerMs = 250;
constexpr std::uint32_t NamedSimulators = 15;
constexpr COLORREF WrongText = RGB(0xC0, 0x00, 0x00);
constexpr COLORREF HeadingText = RGB(0x00, 0x3C, 0x96);

const std::vector<Item> Items = {
    {Kind::Heading, Unnamed, 0, L"Radios"},
    {Kind::Edit, FirstBox + Com1, 0, L"COM &1"},
    {Kind::Edit, FirstBox + Com1Standby, 1, L"&Standby"},
    {Kind::Edit, FirstBox + Com2, 0, L"COM &2"},
    {Kind::Edit, FirstBox + Com2Standby, 1, L"S&tandby"},
    {Kind::Heading, Unnamed, 0, L"Position"},
    {Kind::Edit, FirstBox + Latitude, 0, L"&Latitude"},
    {Kind::Edit, FirstBox + Longitude, 1, L"L&ongitude"},
    {Kind::Combo, FlyToBox, 0, L"&Fly to", true},
    {Kind::Heading, Unnamed, 0, L"Simulator"},
    {Kind::Combo, FirstBox + Simulator, 0, L"&Kind", true},
    {Kind::Edit, FirstBox + Version, 0, L"FSUIPC &version"},
    {Kind::Combo, FirstBox + FaultInjection, 1, L"Fa&ult"},
    {Kind::Check, FirstBox + Paused, 0, L"&Paused"},
};

/// Selects a row of a combo box; -1 selects none.
void Choose(HWND combo, std::ptrdiff_t row) {
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

} // namespace

bool SimulatorWindow::Create(const std::wstring& window_class, int show) {
    link_message_ = RegisterWindowMessageA("FSASMLIB:IPC");
    WNDCLASSW form{};
    form.lpfnWndProc = Procedure;
    form.hInstance = GetModuleHandleW(nullptr);
    form.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    form.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    form.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    form.lpszClassName = window_class.c_str();
    RegisterClassW(&form);
    CreateWindowExW(0, window_class.c_str(), L"Practice simulator",
                    WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX, CW_USEDEFAULT, CW_USEDEFAULT, 0,
                    0, nullptr, nullptr, form.hInstance, this);
    if (!window_) return false;
    MakeControls();
    ShowWindow(window_, show);
    return true;
}

LRESULT CALLBACK SimulatorWindow::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
        auto* created = static_cast<SimulatorWindow*>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams);
        created->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* self = reinterpret_cast<SimulatorWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self ? self->Handle(message, wparam, lparam) : DefWindowProcW(window, message, wparam, lparam);
}

LRESULT SimulatorWindow::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == link_message_) {
        PostMessageW(window_, MemoryChanged, 0, 0);
        return static_cast<LRESULT>(peer_.Answer(wparam));
    }
    switch (message) {
    case WM_COMMAND:
        Command(LOWORD(wparam), HIWORD(wparam));
        return 0;
    case MemoryChanged:
        Refresh();
        return 0;
    case WM_TIMER:
        ShowTraffic();
        return 0;
    case WM_NEXTDLGCTL:
        MoveFocus(wparam, lparam);
        return 0;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLOREDIT:
        return Paint(reinterpret_cast<HDC>(wparam), reinterpret_cast<HWND>(lparam));
    case WM_DPICHANGED:
        theme_ = quillon::Theme(HIWORD(wparam));
        Place(reinterpret_cast<const POINT*>(lparam));
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window_, message, wparam, lparam);
    }
}

/// What a dialog does by default; without it a label's mnemonic would not move the focus.
void SimulatorWindow::MoveFocus(WPARAM wparam, LPARAM lparam) {
    const bool to_control = LOWORD(lparam) != 0;
    SetFocus(to_control ? reinterpret_cast<HWND>(wparam) : GetNextDlgTabItem(window_, GetFocus(), wparam != 0));
}

void SimulatorWindow::MakeControls() {
    grid_.Create(window_, Items);
    FillChoices();
    status_bar_ =
        CreateWindowExW(0, STATUSCLASSNAMEW, nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, window_,
                        reinterpret_cast<HMENU>(INT_PTR{StatusBar}), GetModuleHandleW(nullptr), nullptr);
    theme_ = quillon::Theme(GetDpiForWindow(window_));
    Place(nullptr);
    Refresh();
    ShowTraffic();
    SetTimer(window_, 1, TrafficTimerMs, nullptr);
    SetFocus(Box(FirstBox + Com1));
}

void SimulatorWindow::FillChoices() {
    const auto add = [this](int id, const std::wstring& text) {
        SendMessageW(Box(id), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    };
    for (const Airport& airport : Airports) add(FlyToBox, airport.name);
    for (std::uint32_t code = 0; code < NamedSimulators; ++code) {
        add(FirstBox + Simulator, Wide(quillon::SimName(code)));
        choices_[Simulator].push_back(std::to_string(code));
    }
    for (const std::string_view name : FaultNames) {
        add(FirstBox + FaultInjection, Wide(name));
        choices_[FaultInjection].emplace_back(name);
    }
}

/// Sizes the window to its content, and moves it to `corner` if there is one.
void SimulatorWindow::Place(const POINT* corner) {
    const SIZE grid = grid_.Place(theme_);
    SendMessageW(status_bar_, WM_SETFONT, reinterpret_cast<WPARAM>(theme_.Text()), TRUE);
    SendMessageW(status_bar_, WM_SIZE, 0, 0);
    RECT bar{};
    GetWindowRect(status_bar_, &bar);
    RECT frame{0, 0, grid.cx, grid.cy + (bar.bottom - bar.top)};
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE));
    AdjustWindowRectExForDpi(&frame, style, FALSE, 0, theme_.Dpi());
    SetWindowPos(window_, nullptr, corner ? corner->x : 0, corner ? corner->y : 0, frame.right - frame.left,
                 frame.bottom - frame.top, SWP_NOZORDER | SWP_NOACTIVATE | (corner ? 0U : SWP_NOMOVE));
    SendMessageW(status_bar_, WM_SIZE, 0, 0);
}

void SimulatorWindow::Command(int id, int notification) {
    if (refreshing_ || id < FirstBox || id > FlyToBox) return;
    const auto field = static_cast<FieldId>(id - FirstBox);
    const bool changed =
        notification == EN_CHANGE || notification == CBN_SELCHANGE || notification == BN_CLICKED;
    if (changed && id == FlyToBox)
        FlyTo();
    else if (changed)
        Edited(field);
    else if (notification == EN_KILLFOCUS)
        Show(field);
}

/// Invalid text is shown in red and changes nothing in memory.
void SimulatorWindow::Edited(FieldId field) {
    wrong_[field] = !Fields[field].set(memory_, Entered(field));
    shown_[field] = Fields[field].text(memory_);
    Refresh();
    InvalidateRect(Box(FirstBox + field), nullptr, TRUE);
}

void SimulatorWindow::FlyTo() {
    const LRESULT chosen = SendMessageW(Box(FlyToBox), CB_GETCURSEL, 0, 0);
    if (chosen < 0) return;
    MoveTo(memory_, Airports.at(static_cast<std::size_t>(chosen)));
    Refresh();
}

/// Shows what has changed in memory. Text being entered stays if its value in memory has not changed.
void SimulatorWindow::Refresh() {
    for (int i = 0; i < FieldCount; ++i) {
        const auto field = static_cast<FieldId>(i);
        if (Fields[field].text(memory_) != shown_[field]) Show(field);
    }
    const auto here = std::find_if(Airports.begin(), Airports.end(),
                                   [this](const Airport& airport) { return IsAt(memory_, airport); });
    Choose(Box(FlyToBox), here == Airports.end() ? -1 : here - Airports.begin());
}

void SimulatorWindow::Show(FieldId field) {
    HWND box = Box(FirstBox + field);
    const std::string text = shown_[field] = Fields[field].text(memory_);
    wrong_[field] = false;
    refreshing_ = true;
    if (const auto& choices = choices_[field]; !choices.empty()) {
        const auto chosen = std::find(choices.begin(), choices.end(), text.substr(0, text.find('=')));
        SendMessageW(box, CB_SETCURSEL, chosen == choices.end() ? ~WPARAM{0} : WPARAM(chosen - choices.begin()),
                     0);
    } else if (field == Paused) {
        SendMessageW(box, BM_SETCHECK, text != "0" ? BST_CHECKED : BST_UNCHECKED, 0);
    } else {
        SetWindowTextW(box, Wide(text).c_str());
    }
    refreshing_ = false;
}

std::string SimulatorWindow::Entered(FieldId field) const {
    HWND box = Box(FirstBox + field);
    if (field == Paused) return SendMessageW(box, BM_GETCHECK, 0, 0) == BST_CHECKED ? "1" : "0";
    if (const auto& choices = choices_[field]; !choices.empty())
        return choices.at(static_cast<std::size_t>(SendMessageW(box, CB_GETCURSEL, 0, 0)));
    wchar_t text[64];
    return Narrow({text, static_cast<std::size_t>(GetWindowTextW(box, text, 64))});
}

void SimulatorWindow::ShowTraffic() {
    const std::uint64_t answered = peer_.Answered();
    if (std::exchange(shown_traffic_, answered) == answered) return;
    const std::string count = quillon::Format(static_cast<double>(answered), "#,###,###,###,##0");
    const std::string text = answered == 0 ? "Waiting for a program to connect" : count + " requests answered";
    SetWindowTextW(status_bar_, Wide(text).c_str());
}

LRESULT SimulatorWindow::Paint(HDC dc, HWND control) const {
    const int id = GetDlgCtrlID(control);
    const bool wrong = id >= FirstBox && id < FlyToBox && wrong_[static_cast<std::size_t>(id - FirstBox)];
    const bool heading = SendMessageW(control, WM_GETFONT, 0, 0) == reinterpret_cast<LRESULT>(theme_.Bold());
    SetTextColor(dc, wrong ? WrongText : heading ? HeadingText : GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(dc, GetSysColor(COLOR_WINDOW));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
}

} // namespace practice
