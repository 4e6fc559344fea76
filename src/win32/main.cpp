#include "win32/Adapters.h"
#include "win32/MainWindow.h"
#include "win32/StreamPlayer.h"
#include "win32/Utf16.h"
#include "win32/WinMessageLink.h"

#include <windows.h>

namespace {

/// The command line behind the program's own name, which may be quoted.
std::string Arguments() {
    const wchar_t* text = GetCommandLineW();
    const wchar_t end = *text == L'"' ? *text++ : L' ';
    while (*text != L'\0' && *text != end) ++text;
    if (*text != L'\0') ++text;
    return quillon::Narrow(text);
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    using namespace quillon;
    MainWindow window;
    WinMessageLink link;
    WinSharedMemory memory;
    WinClock clock([&](std::chrono::milliseconds time) { return window.ServeEvents(time); });
    WinPrompts prompts([&] { return window.BoxOwner(); });
    WinDialogs dialogs([&] { return window.BoxOwner(); });
    WinShell shell;
    WinUserFiles files([&] { return window.BoxOwner(); });
    WinRegionalSettings regional;
    WinCodePage code_page;
    WinKeyboard keyboard;
    StreamPlayer player(QUILLON_VERSION);
    Program program(
        {link, memory, clock, player, prompts, dialogs, window, shell, files, regional, code_page, keyboard},
        Arguments());
    if (!window.Create(program)) return 1;
    program.ConnectToSimulator();
    window.Run();
    return 0;
}
