#include "win32/window/MuteKeyDialog.h"

#include "state/MuteKeys.h"
#include "win32/window/DialogIds.h"
#include "win32/window/Dialogs.h"

#include <array>
#include <commctrl.h>
#include <string>

namespace quillon {

namespace {

struct Choice {
    int Key;
    int Other; ///< the key in the box of the fifth option
};

Choice& ChoiceOf(HWND dialog) {
    return *reinterpret_cast<Choice*>(GetWindowLongPtrW(dialog, DWLP_USER));
}

/// Keys that share their scan codes with the numeric keypad; Windows does not tell them apart for all layouts.
bool IsBesideKeypad(int key) {
    return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE || key == VK_NUMLOCK;
}

/// What is printed on a key, in the language of the keyboard.
std::wstring NameOf(int key) {
    if (key == NoMuteKey) return L"None";
    if (key == VK_PAUSE) return L"Pause"; // has no scan code of its own
    const UINT code = MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC_EX);
    const UINT extended = code > 0xFF || IsBesideKeypad(key) ? KF_EXTENDED : 0;
    std::array<wchar_t, 64> name{};
    const auto place = static_cast<LONG>((code & 0xFF) << 16 | extended << 16);
    if (code == 0 || GetKeyNameTextW(place, name.data(), name.size()) == 0)
        return L"Key " + std::to_wstring(key);
    return name.data();
}

void Choose(HWND dialog, int key) {
    const int option = IDC_OPTION1 + MuteKeyOption(key) - 1;
    CheckRadioButton(dialog, IDC_OPTION1, IDC_OPTION5, option);
    if (option != IDC_OPTION5) return;
    ChoiceOf(dialog).Other = key;
    SetDlgItemTextW(dialog, IDC_OTHER_KEY, NameOf(key).c_str());
}

int Chosen(HWND dialog) {
    for (std::size_t option = 0; option < MuteKeyCodes.size(); ++option)
        if (IsDlgButtonChecked(dialog, IDC_OPTION1 + static_cast<int>(option)) == BST_CHECKED)
            return MuteKeyCodes.at(option);
    return ChoiceOf(dialog).Other;
}

/// Whether a key that went down in the box is chosen by that. Shift is not: it may be the beginning of
/// Shift+Tab.
bool IsChoice(int key, LPARAM flags) {
    return CanBeMuteKey(key) && key != VK_SHIFT && (HIWORD(flags) & KF_ALTDOWN) == 0 &&
           GetKeyState(VK_CONTROL) >= 0;
}

/// The box takes keys instead of text; Tab and shortcuts work as everywhere.
LRESULT CALLBACK KeyProcedure(HWND box, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR, DWORD_PTR) {
    const int key = static_cast<int>(wparam);
    if (message == WM_GETDLGCODE && key != VK_TAB) return DLGC_WANTALLKEYS;
    if (message == WM_CHAR) return 0; // a read-only box would beep
    if ((message == WM_KEYDOWN || message == WM_SYSKEYDOWN) && IsChoice(key, lparam)) {
        Choose(GetParent(box), key);
        return 0;
    }
    return DefSubclassProc(box, message, wparam, lparam);
}

void Begin(HWND dialog) {
    PrepareDialog(dialog);
    SetWindowSubclass(GetDlgItem(dialog, IDC_OTHER_KEY), KeyProcedure, 0, 0);
    Choose(dialog, NoMuteKey); // what the box shows until a key is pressed there
    const int key = ChoiceOf(dialog).Key;
    Choose(dialog, key);
    SetFocus(GetDlgItem(dialog, IDC_OPTION1 + MuteKeyOption(key) - 1));
}

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lparam);
        Begin(dialog);
        return FALSE; // the focus has been set
    }
    if (message != WM_COMMAND) return FALSE;
    const int id = LOWORD(wparam);
    if (id == IDC_NO_KEY) Choose(dialog, NoMuteKey);
    if (id == IDOK) ChoiceOf(dialog).Key = Chosen(dialog);
    if (id == IDOK || id == IDCANCEL) EndDialog(dialog, id);
    return TRUE;
}

} // namespace

std::optional<int> AskForMuteKey(HWND owner, int key) {
    Choice choice{key, NoMuteKey};
    const INT_PTR ended = DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_MUTE_KEY), owner,
                                          Procedure, reinterpret_cast<LPARAM>(&choice));
    return ended == IDOK ? std::optional(choice.Key) : std::nullopt;
}

} // namespace quillon
