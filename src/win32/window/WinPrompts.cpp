#include "win32/window/WinPrompts.h"

#include "runtime/Text.h"
#include "win32/system/KeptFolder.h"
#include "win32/system/LateFunction.h"
#include "win32/system/Utf16.h"
#include "win32/window/Dialogs.h"
#include "win32/window/MuteKeyDialog.h"

#include <array>
#include <commdlg.h>

namespace quillon {

namespace {

UINT StyleOf(Icon icon) {
    switch (icon) {
    case Icon::Information:
        return MB_ICONINFORMATION;
    case Icon::Exclamation:
        return MB_ICONEXCLAMATION;
    case Icon::Critical:
        return MB_ICONERROR;
    }
    return 0;
}

/// Shortens a report that quotes a long line of a broken file: the box's button would be off the screen.
std::wstring FitForBox(const std::string& text) {
    constexpr std::size_t Most = 1500;
    std::string shown = text.size() <= Most ? text : Left(text, Most / 2) + "\r...\r" + Right(text, Most / 2);
    std::erase(shown, '\0'); // would end the text
    return WithLineFeeds(shown);
}

} // namespace

void WinPrompts::Message(const std::string& title, const std::string& text, Icon icon) {
    HWND owner = owner_();
    MessageBoxW(owner, FitForBox(text).c_str(), Wide(title).c_str(), MB_OK | StyleOf(icon) | MB_SETFOREGROUND);
}

std::string WinPrompts::InputBox(const std::string& title, const std::string& prompt,
                                 const std::string& default_answer) {
    return AskForText(owner_(), title, prompt, default_answer);
}

bool WinPrompts::Confirm(const std::string& title, const std::string& text, Choices choices) {
    const UINT buttons = choices == Choices::YesNoCancel ? MB_YESNOCANCEL : MB_YESNO;
    const UINT default_button = choices == Choices::YesByDefault ? MB_DEFBUTTON1 : MB_DEFBUTTON2;
    return MessageBoxW(owner_(), FitForBox(text).c_str(), Wide(title).c_str(),
                       buttons | default_button | MB_ICONQUESTION | MB_SETFOREGROUND) == IDYES;
}

std::string WinPrompts::BrowseFile(const std::string& description, const std::string& pattern,
                                   const std::string& folder) {
    const std::wstring start = Wide(folder);
    std::wstring filter = Wide(description) + L'\0' + Wide(pattern) + L'\0';
    std::array<wchar_t, 32768> path{};
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner_();
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrInitialDir = start.empty() ? nullptr : start.c_str();
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = path.size();
    dialog.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_EXPLORER;
    const KeptFolder kept; // the flag alone does not do it everywhere
    const auto open = LateFunction<decltype(GetOpenFileNameW)>(L"comdlg32.dll", "GetOpenFileNameW");
    return open != nullptr && open(&dialog) ? Narrow(path.data()) : "";
}

std::optional<int> WinDialogs::MuteKey(int key) {
    return AskForMuteKey(owner_(), key);
}

bool WinDialogs::About() {
    return ShowAbout(owner_());
}

std::string WinDialogs::ProgramFolders(const Folders& folders) {
    return ShowFolders(owner_(), folders);
}

} // namespace quillon
