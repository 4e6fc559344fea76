#include "player/TwoPlayers.h"
#include "win32/print/WinPrinter.h"
#include "win32/sound/StreamPlayer.h"
#include "win32/sound/WinFeedProbe.h"
#include "win32/sound/WinSoundDevices.h"
#include "win32/sound/WindowsMediaPlayer.h"
#include "win32/system/Adapters.h"
#include "win32/system/Handle.h"
#include "win32/system/Utf16.h"
#include "win32/system/WinBackground.h"
#include "win32/system/WinFolderLister.h"
#include "win32/system/WinMessageLink.h"
#include "win32/window/ControlIds.h"
#include "win32/window/MainWindow.h"
#include "win32/window/WinPrompts.h"

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

/// Brings the window of a running Quillon forward; one that is hidden shows itself, unless it is just starting.
/// Returns whether there is one to be seen.
bool BringForward() {
    HWND other = FindWindowW(quillon::MainWindowClass, nullptr);
    if (other == nullptr) return false;
    PostMessageW(other, RegisterWindowMessageW(quillon::ShowMessage), 0, 0);
    if (!IsWindowVisible(other)) return false;
    SetForegroundWindow(GetLastActivePopup(other));
    return true;
}

using Mark = quillon::Handle<HANDLE, CloseHandle>;

/// Waits until another Quillon ends, for at most that time. Returns whether it has.
bool WaitForEnd(const Mark& mark, DWORD ms) {
    if (!mark) { // it runs as administrator
        Sleep(ms);
        return false;
    }
    const DWORD outcome = WaitForSingleObject(mark.Get(), ms);
    return outcome == WAIT_OBJECT_0 || outcome == WAIT_ABANDONED;
}

/// Whether no other Quillon runs, as the mark tells that each holds while it runs. The window of one that does
/// is brought forward; one that is just ending or starting is waited for.
bool IsTheOnlyOne(Mark& mark) {
    constexpr const wchar_t* Name = L"Local\\Quillon.Running";
    constexpr DWORD WaitMs = 6000; // longer than a start takes to show its window
    constexpr DWORD SliceMs = 100;
    mark.Reset(CreateMutexW(nullptr, FALSE, Name));
    if (!mark) mark.Reset(OpenMutexW(SYNCHRONIZE, FALSE, Name)); // one run as administrator allows no more
    if (!mark && GetLastError() != ERROR_ACCESS_DENIED) return true;
    for (DWORD waited = 0; waited < WaitMs; waited += SliceMs) {
        if (WaitForEnd(mark, SliceMs)) return true;
        if (BringForward()) return false;
    }
    MessageBoxW(
        nullptr,
        L"Quillon is already running but has not shown its window yet. It may be waiting for your answer "
        L"in another box.",
        L"Quillon", MB_OK | MB_ICONINFORMATION | MB_SETFOREGROUND);
    return false;
}

/// The Windows Media Player control; null when the system has none or only a part of it.
std::unique_ptr<quillon::FeedPlayer> AnsweringControl() {
    auto control = std::make_unique<quillon::WindowsMediaPlayer>();
    if (!control->Answers()) return nullptr;
    return control;
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    using namespace quillon;
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32); // never from the program's own folder
    Mark mark;
    if (!IsTheOnlyOne(mark)) return 0;
    const ComApartment apartment;
    MainWindow window;
    WinMessageLink link;
    WinSharedMemory memory;
    WinClock clock([&](std::chrono::milliseconds time) { return window.ServeEvents(time); });
    WinPrompts prompts([&] { return window.BoxOwner(); });
    WinDialogs dialogs([&] { return window.BoxOwner(); });
    WinShell shell([&] { return window.BoxOwner(); });
    WinUserFiles files([&] { return window.BoxOwner(); });
    WinRegionalSettings regional;
    WinCodePage code_page;
    WinKeyboard keyboard;
    WinPrinter printer([&] { return window.BoxOwner(); });
    WinSoundDevices devices;
    StreamPlayer built_in(QUILLON_VERSION, devices.Chosen());
    WinFeedProbe probe(QUILLON_VERSION);
    TwoPlayers player(built_in, AnsweringControl);
    WinFolderLister folders;
    WinBackground background([&] { window.Sync(); });
    WinBackground disk([&] { window.Sync(); });
    Program program({.link = link,
                     .memory = memory,
                     .clock = clock,
                     .player = player,
                     .live = player,
                     .prompts = prompts,
                     .dialogs = dialogs,
                     .display = window,
                     .shell = shell,
                     .files = files,
                     .regional = regional,
                     .code_page = code_page,
                     .keyboard = keyboard,
                     .printer = printer,
                     .probe = probe,
                     .background = background,
                     .devices = devices,
                     .folders = folders,
                     .disk = disk},
                    Arguments());
    if (!window.Create(program)) return 1;
    program.ConnectToSimulator();
    window.Run();
    // A simulator or disk that hangs may hold its thread for seconds yet, and what it uses must not be taken
    // from it.
    constexpr std::chrono::milliseconds Patience{500};
    if (!background.Finish(Patience) || !disk.Finish(Patience)) ExitProcess(0);
    return 0;
}
