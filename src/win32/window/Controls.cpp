#include "win32/window/Controls.h"

namespace quillon {

HWND AddControl(HWND parent, const wchar_t* control_class, const wchar_t* text, DWORD style, int id,
                DWORD extended_style) {
    return CreateWindowExW(extended_style, control_class, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0,
                           parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
}

/// Transparent: a parent that does not paint under its children would otherwise leave the inside of the group
/// unpainted.
HWND AddGroup(HWND parent, const wchar_t* text) {
    return AddControl(parent, L"BUTTON", text, BS_GROUPBOX | WS_GROUP, -1, WS_EX_TRANSPARENT);
}

void MoveControl(HWND control, int x, int y, int width, int height) {
    SetWindowPos(control, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void ShowControls(std::initializer_list<HWND> controls, bool visible) {
    for (HWND control : controls) ShowWindow(control, visible ? SW_SHOW : SW_HIDE);
}

void SetFonts(std::initializer_list<HWND> controls, HFONT font) {
    for (HWND control : controls) SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

void ForwardSystemColors(HWND window) {
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        SendMessageW(child, WM_SYSCOLORCHANGE, 0, 0);
}

std::wstring TextOf(HWND control) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
    return text;
}

HFONT FontOf(HWND control) {
    return reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
}

int HeightOf(HWND control) {
    RECT area{};
    GetWindowRect(control, &area);
    return area.bottom - area.top;
}

int LineHeight(const Theme& theme) {
    return theme.Measure(theme.Text(), L"Ag").cy;
}

} // namespace quillon
