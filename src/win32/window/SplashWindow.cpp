#include "win32/window/SplashWindow.h"

#include <string>

namespace quillon {

namespace {

constexpr const wchar_t* SplashClass = L"QuillonSplash";
constexpr const wchar_t* Name = L"Quillon";
constexpr const wchar_t* Purpose = L"Air traffic control feeds for your flight simulator";
constexpr const wchar_t* Version = L"Version " QUILLON_VERSION_W;
constexpr int IconSize = 96;
constexpr int Margin = 28;
constexpr COLORREF Night = RGB(16, 32, 56);
constexpr COLORREF Moonlight = RGB(236, 242, 250);
constexpr COLORREF Haze = RGB(150, 176, 208);

void Write(HDC context, HFONT font, COLORREF color, int x, int y, const std::wstring& text) {
    const HGDIOBJ old = SelectObject(context, font);
    SetTextColor(context, color);
    TextOutW(context, x, y, text.c_str(), static_cast<int>(text.size()));
    SelectObject(context, old);
}

} // namespace

void SplashWindow::Show(bool visible) {
    if (visible == (window_ != nullptr)) return;
    if (visible) {
        Open();
    } else {
        DestroyWindow(window_);
        window_ = nullptr;
    }
}

void SplashWindow::Open() {
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = Procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.hCursor = LoadCursorW(nullptr, IDC_APPSTARTING);
    window_class.lpszClassName = SplashClass;
    RegisterClassExW(&window_class);

    theme_ = Theme(GetDpiForSystem());
    const int width = theme_.Px(IconSize + 3 * Margin) + theme_.Measure(theme_.Text(), Purpose).cx;
    const int height = theme_.Px(IconSize + 2 * Margin);
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    window_ = CreateWindowExW(WS_EX_TOOLWINDOW, SplashClass, Name, WS_POPUP,
                              (area.left + area.right - width) / 2, (area.top + area.bottom - height) / 2,
                              width, height, nullptr, nullptr, window_class.hInstance, this);
    ShowWindow(window_, SW_SHOWNOACTIVATE);
    UpdateWindow(window_);
}

LRESULT CALLBACK SplashWindow::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
        auto* self = static_cast<SplashWindow*>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams);
        self->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    if (message == WM_CLOSE) return 0; // it closes when the program has started
    if (message == WM_PAINT) {
        reinterpret_cast<SplashWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA))->Paint();
        return 0;
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

void SplashWindow::Paint() const {
    PAINTSTRUCT paint;
    HDC context = BeginPaint(window_, &paint);
    RECT area{};
    GetClientRect(window_, &area);
    const Handle<HBRUSH, DeleteObject> background(CreateSolidBrush(Night));
    FillRect(context, &area, background.Get());

    const int size = theme_.Px(IconSize);
    const int margin = theme_.Px(Margin);
    const IconHandle icon(static_cast<HICON>(
        LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
    DrawIconEx(context, margin, margin, icon.Get(), size, size, 0, nullptr, DI_NORMAL);

    SetBkMode(context, TRANSPARENT);
    const int left = size + 2 * margin;
    const int name_height = theme_.Measure(theme_.Huge(), Name).cy;
    const int line = theme_.Measure(theme_.Text(), Purpose).cy;
    int y = margin + (size - name_height - 3 * line) / 2;
    Write(context, theme_.Huge(), Moonlight, left, y, Name);
    y += name_height + line / 2;
    Write(context, theme_.Text(), Moonlight, left, y, Purpose);
    y += line * 3 / 2;
    Write(context, theme_.Text(), Haze, left, y, Version);
    EndPaint(window_, &paint);
}

} // namespace quillon
