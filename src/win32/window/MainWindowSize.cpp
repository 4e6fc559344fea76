#include "win32/window/MainWindowSize.h"

#include <algorithm>
#include <numeric>

namespace quillon {

namespace {

constexpr int LeastHeight = 370; // at 96 dpi: leaves the list its least height below both preference frames
constexpr int FirstHeight = 480;

void Resize(HWND window, int width, int height) {
    SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
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

} // namespace quillon
