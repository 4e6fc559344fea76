#include "Windows.h"

#include "Commands.h"
#include "win32/system/Handle.h"
#include "win32/system/Utf16.h"
#include "win32/window/ControlIds.h"

namespace practice {

namespace {

constexpr UINT AnswerMs = 10000;

BOOL CALLBACK Collect(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::wstring ProgramOf(HWND window) {
    const quillon::Handle<HANDLE, CloseHandle> process(
        OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, ProcessOf(window)));
    wchar_t path[1024];
    DWORD length = 1024;
    if (!process || !QueryFullProcessImageNameW(process.Get(), 0, path, &length)) return {};
    const std::wstring text(path, length);
    return text.substr(text.find_last_of(L'\\') + 1);
}

/// The installer and the uninstaller run as temporary files, whose names vary.
bool IsOurs(HWND window) {
    wchar_t text[64];
    const std::wstring title(text, static_cast<std::size_t>(GetWindowTextW(window, text, 64)));
    return title.starts_with(L"Quillon Setup") || title.starts_with(L"Quillon Uninstall") ||
           CompareStringOrdinal(ProgramOf(window).c_str(), -1, L"Quillon.exe", -1, TRUE) == CSTR_EQUAL;
}

} // namespace

std::wstring ClassOf(HWND window) {
    wchar_t name[256];
    return {name, static_cast<std::size_t>(GetClassNameW(window, name, 256))};
}

DWORD ProcessOf(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process;
}

HWND FindTopLevel(const std::wstring& window_class) {
    return FindWindowW(window_class.c_str(), nullptr);
}

HWND TheTopLevel(const std::wstring& window_class) {
    HWND window = FindTopLevel(window_class);
    if (!window) throw Failure("no window of class " + quillon::Narrow(window_class));
    return window;
}

HWND TheMainWindow() {
    return TheTopLevel(quillon::MainWindowClass);
}

HWND TheChild(HWND parent, const std::function<bool(HWND)>& fits, const std::string& what) {
    for (HWND child : Descendants(parent))
        if (fits(child)) return child;
    throw Failure("no control " + what);
}

std::vector<HWND> Boxes() {
    std::vector<HWND> windows;
    EnumWindows(Collect, reinterpret_cast<LPARAM>(&windows));
    std::erase_if(windows, [](HWND window) {
        return !IsWindowVisible(window) || ClassOf(window) != L"#32770" || !IsOurs(window);
    });
    return windows;
}

std::vector<HWND> Descendants(HWND parent) {
    std::vector<HWND> windows;
    EnumChildWindows(parent, Collect, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

LRESULT Ask(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutW(window, message, wparam, lparam, SMTO_BLOCK, AnswerMs, &answer))
        throw Failure("the window does not answer");
    return static_cast<LRESULT>(answer);
}

std::string TextOf(HWND control) {
    std::wstring text(static_cast<std::size_t>(Ask(control, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
    const LRESULT length = Ask(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return quillon::Narrow(text.substr(0, static_cast<std::size_t>(length)));
}

} // namespace practice
