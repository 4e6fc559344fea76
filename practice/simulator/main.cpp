#include "Options.h"
#include "SimulatorWindow.h"
#include "win32/system/Utf16.h"

#include <windows.h>

#include <commctrl.h>
#include <cstdio>
#include <shellapi.h>

namespace {

std::vector<std::string> CommandLineWords() {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> texts;
    for (int i = 1; i < count; ++i) texts.push_back(quillon::Narrow(words[i]));
    LocalFree(words);
    return texts;
}

int Refuse(const std::string& reason) {
    std::fprintf(stderr, "PracticeSim: %s\n", reason.c_str());
    MessageBoxW(nullptr, quillon::Wide(reason).c_str(), L"Practice simulator", MB_ICONERROR);
    return 2;
}

void ServeMessages(HWND window) {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (IsDialogMessageW(window, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int show) {
    static practice::OffsetMemory memory;
    practice::SetUp(memory);
    practice::Options options;
    if (const std::string wrong = ReadOptions(CommandLineWords(), options, memory); !wrong.empty())
        return Refuse(wrong);

    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    practice::Peer peer(memory);
    practice::SimulatorWindow window(memory, peer);
    if (!window.Create(quillon::Wide(options.window_class), options.minimised ? SW_SHOWMINNOACTIVE : show))
        return Refuse("the window could not be created");
    ServeMessages(window.Handle());
    return 0;
}
