// The smallest possible program with a window: the part of Quillon's start-up time that Windows takes.
#include <windows.h>

static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcW(window, message, wparam, lparam);
}

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = Procedure;
    window_class.hInstance = instance;
    window_class.lpszClassName = L"EmptyWindow";
    RegisterClassW(&window_class);
    CreateWindowW(L"EmptyWindow", L"Empty", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 640, 480, nullptr, nullptr,
                  instance, nullptr);
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) DispatchMessageW(&message);
    return 0;
}
