#include "win32/window/MainWindowSize.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace quillon {

namespace {

constexpr int LeastHeight = 370; // at 96 dpi: leaves the list its least height below both preference frames
constexpr int FirstHeight = 480;

void Resize(HWND window, int width, int height) {
    SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL CALLBACK AddScreen(HMONITOR monitor, HDC, LPRECT, LPARAM list) {
    auto& screens = *reinterpret_cast<std::vector<ScreenArea>*>(list);
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (!GetMonitorInfoW(monitor, &info)) return TRUE;
    const RECT& area = info.rcWork;
    const bool first = (info.dwFlags & MONITORINFOF_PRIMARY) != 0;
    screens.insert(first ? screens.begin() : screens.end(),
                   {static_cast<int>(area.left), static_cast<int>(area.top),
                    static_cast<int>(area.right - area.left), static_cast<int>(area.bottom - area.top)});
    return TRUE;
}

} // namespace

void MainWindowSize::SetFirst(HWND window, const Theme& theme, int least_width) {
    const int twips = std::accumulate(PanelWidths.begin(), PanelWidths.end(), 0);
    RECT area{0, 0, std::max(theme.TwipsToPx(twips), least_width) + theme.Px(24), theme.Px(FirstHeight)};
    AdjustWindowRectExForDpi(&area, WS_OVERLAPPEDWINDOW, TRUE, WS_EX_CONTROLPARENT, theme.Dpi());
    Resize(window, area.right - area.left, area.bottom - area.top);
}

void MainWindowSize::Limit(MINMAXINFO& limits, const Theme& theme, int least_width) {
    limits.ptMinTrackSize = {least_width + theme.Px(16), theme.Px(LeastHeight)};
}

WindowSize MainWindowSize::Read(HWND window, const Theme& theme) {
    RECT area{};
    GetWindowRect(window, &area);
    shown_ = {MulDiv(area.right - area.left, 96, static_cast<int>(theme.Dpi())),
              MulDiv(area.bottom - area.top, 96, static_cast<int>(theme.Dpi()))};
    return shown_;
}

void MainWindowSize::Sync(HWND window, const Theme& theme, WindowSize size) {
    if (shown_ == size) return;
    shown_ = size;
    RECT screen{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    Resize(window, std::min(theme.Px(size.Width), static_cast<int>(screen.right - screen.left)),
           std::min(theme.Px(size.Height), static_cast<int>(screen.bottom - screen.top)));
}

void MainWindowSize::MoveTo(HWND window, std::optional<WindowPlace> place) {
    std::vector<ScreenArea> screens;
    EnumDisplayMonitors(nullptr, nullptr, AddScreen, reinterpret_cast<LPARAM>(&screens));
    RECT area{};
    GetWindowRect(window, &area);
    const WindowPlace wanted =
        place.value_or(WindowPlace{static_cast<int>(area.left), static_cast<int>(area.top)});
    const WindowPlace seen = OnScreen({wanted.Left, wanted.Top, static_cast<int>(area.right - area.left),
                                       static_cast<int>(area.bottom - area.top)},
                                      screens);
    SetWindowPos(window, nullptr, seen.Left, seen.Top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

WindowPlace MainWindowSize::PlaceOf(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return {static_cast<int>(area.left), static_cast<int>(area.top)};
}

} // namespace quillon
