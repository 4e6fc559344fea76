#include "Commands.h"
#include "Windows.h"
#include "win32/system/Handle.h"
#include "win32/system/Utf16.h"
#include "win32/window/ControlIds.h"

#include <algorithm>

namespace practice {

namespace {

using quillon::Narrow;
using quillon::Wide;

HWND ControlArgument(const std::string& id) {
    const int wanted = static_cast<int>(NumberArgument(id));
    return TheChild(
        TheMainWindow(), [&](HWND child) { return GetDlgCtrlID(child) == wanted; }, id);
}

std::string Post(HWND window, UINT message, WPARAM wparam = 0) {
    if (!PostMessageW(window, message, wparam, 0)) throw Failure("the window is gone");
    return "ok";
}

std::string Ping(const Words&) {
    return "pong";
}

std::string Title(const Words& words) {
    HWND window = words.empty() ? TheMainWindow() : TheTopLevel(Wide(words[0]));
    wchar_t text[1024];
    return Narrow({text, static_cast<std::size_t>(GetWindowTextW(window, text, 1024))});
}

std::string Text(const Words& words) {
    return TextOf(ControlArgument(words[0]));
}

std::string Checked(const Words& words) {
    return Ask(ControlArgument(words[0]), BM_GETCHECK, 0, 0) == BST_CHECKED ? "1" : "0";
}

std::string Enabled(const Words& words) {
    return IsWindowEnabled(ControlArgument(words[0])) ? "1" : "0";
}

std::string Visible(const Words& words) {
    return IsWindowVisible(ControlArgument(words[0])) ? "1" : "0";
}

/// The numbers of the main window's controls that Tab comes to, in that order.
std::string TabOrder(const Words&) {
    std::string numbers;
    for (HWND child : Descendants(TheMainWindow()))
        if (IsWindowVisible(child) && (GetWindowLongW(child, GWL_STYLE) & WS_TABSTOP) != 0)
            numbers += (numbers.empty() ? "" : " ") + std::to_string(GetDlgCtrlID(child));
    return numbers;
}

/// The main window's left, top, width and height in pixels, or that it is minimised or hidden.
std::string Area(const Words&) {
    HWND window = TheMainWindow();
    if (!IsWindowVisible(window)) return "hidden";
    if (IsIconic(window)) return "minimised";
    RECT area{};
    GetWindowRect(window, &area);
    std::string numbers = std::to_string(area.left);
    for (const LONG number : {area.top, area.right - area.left, area.bottom - area.top})
        numbers += " " + std::to_string(number);
    return numbers;
}

/// Whether the main window is kept above all others.
std::string OnTop(const Words&) {
    return (GetWindowLongW(TheMainWindow(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0 ? "1" : "0";
}

std::string Minimise(const Words&) {
    return Post(TheMainWindow(), WM_SYSCOMMAND, SC_MINIMIZE);
}

std::string Click(const Words& words) {
    return Post(ControlArgument(words[0]), BM_CLICK);
}

std::string SendCommand(const Words& words) {
    return Post(TheMainWindow(), WM_COMMAND, NumberArgument(words[0]));
}

void SendKey(unsigned key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(key);
    input.ki.dwFlags = flags;
    if (SendInput(1, &input, sizeof input) != 1) throw Failure("the key was not taken");
}

/// Longer than the interval at which the keyboard is polled, and than Wine caches a key's state.
constexpr unsigned KeyPressMs = 150;

std::string Key(const Words& words) {
    const unsigned key = NumberArgument(words[0]);
    const unsigned held_ms = words.size() > 1 ? NumberArgument(words[1]) : KeyPressMs;
    SendKey(key, 0);
    Sleep(held_ms);
    SendKey(key, KEYEVENTF_KEYUP);
    return "ok";
}

std::string BoxText(HWND box) {
    std::string texts;
    for (HWND child : Descendants(box)) {
        if (ClassOf(child) != L"Static") continue;
        const std::string text = TextOf(child);
        if (!text.empty()) texts += (texts.empty() ? "" : " ") + text;
    }
    return TextOf(box) + "|" + texts;
}

std::string ShowBoxes(const Words&) {
    std::string texts;
    for (HWND box : Boxes()) {
        try {
            texts += (texts.empty() ? "" : "|") + BoxText(box);
        } catch (const Failure&) {
            if (IsWindow(box)) throw; // it was closed while being read
        }
    }
    return texts;
}

HWND TopBox() {
    const std::vector<HWND> boxes = Boxes();
    if (boxes.empty()) throw Failure("no box");
    return boxes.front();
}

std::string Press(const Words& words) {
    const int wanted = static_cast<int>(NumberArgument(words[0]));
    const auto fits = [&](HWND child) { return GetDlgCtrlID(child) == wanted && ClassOf(child) == L"Button"; };
    return Post(TheChild(TopBox(), fits, words[0]), BM_CLICK);
}

std::string Enter(HWND edit, const std::string& text) {
    Ask(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(text).c_str()));
    return "ok";
}

std::string Answer(const Words& words) {
    HWND edit = TheChild(
        TopBox(), [](HWND child) { return ClassOf(child) == L"Edit"; }, "Edit");
    return Enter(edit, Rest(words, 0));
}

std::string Field(const Words& words) {
    const int wanted = static_cast<int>(NumberArgument(words[0]));
    HWND edit = TheChild(
        TopBox(), [&](HWND child) { return GetDlgCtrlID(child) == wanted; }, words[0]);
    return words.size() == 1 ? TextOf(edit) : Enter(edit, Rest(words, 1).substr(1));
}

std::string PickEntry(const Words& words) {
    HWND combo = ControlArgument(words[0]);
    Ask(combo, CB_SETCURSEL, NumberArgument(words[1]), 0);
    return Post(GetParent(combo), WM_COMMAND, MAKEWPARAM(NumberArgument(words[0]), CBN_SELENDOK));
}

std::string Hold(const Words& words) {
    SendKey(NumberArgument(words[0]), 0);
    Sleep(KeyPressMs);
    return "ok";
}

std::string Release(const Words& words) {
    SendKey(NumberArgument(words[0]), KEYEVENTF_KEYUP);
    return "ok";
}

std::string Wait(const Words& words) {
    constexpr DWORD PollMs = 10;
    const std::wstring window_class = Wide(words[0]);
    const unsigned limit_ms = NumberArgument(words[1]);
    const ULONGLONG start = GetTickCount64();
    for (;;) {
        HWND window = FindTopLevel(window_class);
        const ULONGLONG waited_ms = GetTickCount64() - start;
        if (window && IsWindowVisible(window)) return std::to_string(waited_ms);
        if (waited_ms >= limit_ms) throw Failure("no visible window of class " + words[0]);
        Sleep(PollMs);
    }
}

/// For how long Quillon's window, or its splash before that, let a message wait at worst.
std::string Silence(const Words& words) {
    constexpr DWORD PollMs = 10;
    constexpr UINT LongestMs = 60'000;
    const unsigned limit_ms = NumberArgument(words[0]);
    const ULONGLONG start = GetTickCount64();
    ULONGLONG worst_ms = 0;
    while (GetTickCount64() - start < limit_ms) {
        HWND window = FindTopLevel(quillon::MainWindowClass);
        if (window && !IsWindowVisible(window)) window = FindTopLevel(L"QuillonSplash");
        const ULONGLONG sent = GetTickCount64();
        DWORD_PTR answer = 0;
        if (window) SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, LongestMs, &answer);
        worst_ms = std::max(worst_ms, GetTickCount64() - sent);
        Sleep(PollMs);
    }
    return std::to_string(worst_ms);
}

std::string Pid(const Words& words) {
    return std::to_string(ProcessOf(TheTopLevel(Wide(words[0]))));
}

std::string Move(const Words& words) {
    const auto x = static_cast<int>(NumberArgument(words[1]));
    const auto y = static_cast<int>(NumberArgument(words[2]));
    const bool sized = words.size() == 5;
    if (!SetWindowPos(TheTopLevel(Wide(words[0])), nullptr, x, y,
                      sized ? static_cast<int>(NumberArgument(words[3])) : 0,
                      sized ? static_cast<int>(NumberArgument(words[4])) : 0,
                      (sized ? 0U : SWP_NOSIZE) | SWP_NOZORDER | SWP_NOACTIVATE))
        throw Failure("the window stays");
    return "ok";
}

std::string Close(const Words& words) {
    return Post(TheTopLevel(Wide(words[0])), WM_CLOSE);
}

std::string Kill(const Words& words) {
    const quillon::Handle<HANDLE, CloseHandle> process(
        OpenProcess(PROCESS_TERMINATE, FALSE, ProcessOf(TheTopLevel(Wide(words[0])))));
    if (!TerminateProcess(process.Get(), 9)) throw Failure("the process goes on");
    return "ok";
}

} // namespace

const std::vector<Command> WindowCommands = {
    {"ping", 0, 0, Ping},         {"title", 0, 1, Title},         {"text", 1, 1, Text},
    {"checked", 1, 1, Checked},   {"enabled", 1, 1, Enabled},     {"visible", 1, 1, Visible},
    {"click", 1, 1, Click},       {"command", 1, 1, SendCommand}, {"key", 1, 2, Key},
    {"boxes", 0, 0, ShowBoxes},   {"press", 1, 1, Press},         {"wait", 2, 2, Wait},
    {"pid", 1, 1, Pid},           {"close", 1, 1, Close},         {"move", 3, 5, Move},
    {"answer", 0, 99, Answer},    {"pick", 2, 2, PickEntry},      {"hold", 1, 1, Hold},
    {"release", 1, 1, Release},   {"field", 1, 99, Field},        {"kill", 1, 1, Kill},
    {"silence", 1, 1, Silence},   {"tabs", 0, 0, TabOrder},       {"area", 0, 0, Area},
    {"minimise", 0, 0, Minimise}, {"ontop", 0, 0, OnTop},
};

} // namespace practice
