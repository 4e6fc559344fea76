#include "win32/window/ToolTips.h"

#include "win32/system/Utf16.h"

#include <commctrl.h>

namespace quillon {

namespace {

TTTOOLINFOW Tool(HWND window, UINT_PTR id, UINT flags, wchar_t* text) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = flags | TTF_SUBCLASS;
    tool.hwnd = window;
    tool.uId = id;
    tool.lpszText = text;
    return tool;
}

void Send(HWND tips, UINT message, const TTTOOLINFOW& tool) {
    SendMessageW(tips, message, 0, reinterpret_cast<LPARAM>(&tool));
}

} // namespace

HWND CreateToolTips() {
    HWND tips =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0,
                        0, 0, nullptr, nullptr, nullptr, nullptr);
    SendMessageW(tips, TTM_SETMAXTIPWIDTH, 0, 480);
    return tips;
}

void SetControlTip(HWND tips, HWND control, const std::string& text) {
    std::wstring wide = Wide(text);
    const TTTOOLINFOW tool =
        Tool(GetParent(control), reinterpret_cast<UINT_PTR>(control), TTF_IDISHWND, wide.data());
    Send(tips, TTM_DELTOOLW, tool);
    if (!text.empty()) Send(tips, TTM_ADDTOOLW, tool);
}

void AddRectangleTip(HWND tips, HWND window, UINT_PTR number) {
    std::wstring empty;
    Send(tips, TTM_ADDTOOLW, Tool(window, number, 0, empty.data()));
}

void SetTipRectangle(HWND tips, HWND window, UINT_PTR number, const RECT& area) {
    TTTOOLINFOW tool = Tool(window, number, 0, nullptr);
    tool.rect = area;
    Send(tips, TTM_NEWTOOLRECTW, tool);
}

void SetTipText(HWND tips, HWND window, UINT_PTR number, const std::string& text) {
    std::wstring wide = Wide(text);
    Send(tips, TTM_UPDATETIPTEXTW, Tool(window, number, 0, wide.data()));
}

void TrackTip(HWND tips, HWND control, const std::string& text, POINT where) {
    constexpr UINT_PTR Tracked = 1000; // beside the rectangles' numbers
    std::wstring wide = Wide(text);
    TTTOOLINFOW tool = Tool(control, Tracked, 0, wide.data());
    tool.uFlags = TTF_TRACK | TTF_ABSOLUTE;
    SendMessageW(tips, TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&tool));
    Send(tips, TTM_DELTOOLW, tool);
    if (text.empty()) return;
    Send(tips, TTM_ADDTOOLW, tool);
    SendMessageW(tips, TTM_TRACKPOSITION, 0, MAKELPARAM(where.x, where.y));
    SendMessageW(tips, TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
}

} // namespace quillon
