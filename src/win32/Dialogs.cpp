#include "win32/Dialogs.h"

#include "win32/DialogIds.h"
#include "win32/Theme.h"
#include "win32/Utf16.h"

#include <utility>

namespace quillon {

std::wstring WithLineFeeds(const std::string& text) {
    std::wstring lines;
    for (const wchar_t unit : Wide(text)) {
        lines += unit;
        if (unit == L'\r') lines += L'\n';
    }
    return lines;
}

void CenterOverOwner(HWND dialog) {
    RECT owner{};
    RECT own{};
    HWND above = GetWindow(dialog, GW_OWNER);
    if (above == nullptr || !GetWindowRect(above, &owner)) return;
    GetWindowRect(dialog, &own);
    SetWindowPos(dialog, nullptr, (owner.left + owner.right - (own.right - own.left)) / 2,
                 (owner.top + owner.bottom - (own.bottom - own.top)) / 2, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

std::string TextOfItem(HWND dialog, int id) {
    HWND item = GetDlgItem(dialog, id);
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(item)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(item, text.data(), static_cast<int>(text.size()))));
    return Narrow(text);
}

namespace {

struct Question {
    std::string title;
    std::string prompt;
    std::string answer;
};

void Ask(HWND dialog, const Question& question) {
    CenterOverOwner(dialog);
    SetWindowTextW(dialog, Wide(question.title).c_str());
    SetDlgItemTextW(dialog, IDC_PROMPT, WithLineFeeds(question.prompt).c_str());
    SetDlgItemTextW(dialog, IDC_ANSWER, Wide(question.answer).c_str());
    SendDlgItemMessageW(dialog, IDC_ANSWER, EM_SETSEL, 0, -1);
    SetFocus(GetDlgItem(dialog, IDC_ANSWER));
}

INT_PTR CALLBACK InputProcedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lparam);
        Ask(dialog, *reinterpret_cast<Question*>(lparam));
        return FALSE; // the focus has been set
    }
    if (message != WM_COMMAND) return FALSE;
    auto* question = reinterpret_cast<Question*>(GetWindowLongPtrW(dialog, DWLP_USER));
    const int id = LOWORD(wparam);
    if (id != IDOK && id != IDCANCEL) return FALSE;
    question->answer = id == IDOK ? TextOfItem(dialog, IDC_ANSWER) : "";
    EndDialog(dialog, id);
    return TRUE;
}

int SelectedOption(HWND dialog) {
    for (int id = IDC_OPTION1; id <= IDC_OPTION4; ++id)
        if (IsDlgButtonChecked(dialog, id) == BST_CHECKED) return id - IDC_OPTION1 + 1;
    return 0;
}

INT_PTR CALLBACK MuteKeyProcedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
        CenterOverOwner(dialog);
        if (lparam > 0) CheckDlgButton(dialog, IDC_OPTION1 + static_cast<int>(lparam) - 1, BST_CHECKED);
        return TRUE;
    }
    if (message != WM_COMMAND || (LOWORD(wparam) != IDOK && LOWORD(wparam) != IDCANCEL)) return FALSE;
    EndDialog(dialog, LOWORD(wparam) == IDOK ? SelectedOption(dialog) : 0);
    return TRUE;
}

INT_PTR CALLBACK AboutProcedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
        CenterOverOwner(dialog);
        const auto& theme = *reinterpret_cast<const Theme*>(lparam);
        SendDlgItemMessageW(dialog, IDC_ABOUT_NAME, WM_SETFONT, reinterpret_cast<WPARAM>(theme.Large()), FALSE);
        SetDlgItemTextW(dialog, IDC_ABOUT_VERSION, L"Version " QUILLON_VERSION_W);
        return TRUE;
    }
    if (message != WM_COMMAND) return FALSE;
    EndDialog(dialog, LOWORD(wparam));
    return TRUE;
}

INT_PTR CALLBACK FoldersProcedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
        CenterOverOwner(dialog);
        const auto& folders = *reinterpret_cast<const Folders*>(lparam);
        int id = IDC_FOLDER1;
        for (const std::string* folder : {&folders.AppPath, &folders.DataPath, &folders.WavePath})
            SetDlgItemTextW(dialog, id++, Wide(*folder).c_str());
        return TRUE;
    }
    if (message != WM_COMMAND || HIWORD(wparam) != BN_CLICKED) return FALSE;
    EndDialog(dialog, LOWORD(wparam));
    return TRUE;
}

} // namespace

bool ShowAbout(HWND owner) {
    const Theme theme(owner != nullptr ? GetDpiForWindow(owner) : GetDpiForSystem());
    const INT_PTR ended = DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_ABOUT), owner,
                                          AboutProcedure, reinterpret_cast<LPARAM>(&theme));
    return ended == IDC_SYSTEM_INFO;
}

std::string ShowFolders(HWND owner, const Folders& folders) {
    const INT_PTR ended = DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_FOLDERS), owner,
                                          FoldersProcedure, reinterpret_cast<LPARAM>(&folders));
    switch (ended) {
    case IDC_OPEN_FOLDER1:
        return folders.AppPath;
    case IDC_OPEN_FOLDER1 + 1:
        return folders.DataPath;
    case IDC_OPEN_FOLDER1 + 2:
        return folders.WavePath;
    default:
        return {};
    }
}

int AskForMuteKey(HWND owner, int option) {
    const INT_PTR set = DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_MUTE_KEY), owner,
                                        MuteKeyProcedure, option);
    return set > 0 ? static_cast<int>(set) : 0;
}

std::string AskForText(HWND owner, const std::string& title, const std::string& prompt,
                       const std::string& default_answer) {
    Question question{title, prompt, default_answer};
    const INT_PTR ended = DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_INPUT), owner,
                                          InputProcedure, reinterpret_cast<LPARAM>(&question));
    return ended == IDOK ? question.answer : "";
}

FsuipcStatusWindow::~FsuipcStatusWindow() {
    if (window_ != nullptr) DestroyWindow(window_);
}

void FsuipcStatusWindow::Sync(HWND owner, const frmShow_FSUIPC& form) {
    if (!form.Visible) {
        if (window_ != nullptr) DestroyWindow(std::exchange(window_, nullptr));
        return;
    }
    const bool opens = window_ == nullptr;
    if (opens)
        window_ = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_FSUIPC_STATUS), owner,
                                     Procedure, reinterpret_cast<LPARAM>(this));
    if (!opens && caption_ == form.LabelCaption && red_ == form.LabelRed) return;
    caption_ = form.LabelCaption;
    red_ = form.LabelRed;
    SetDlgItemTextW(window_, IDC_STATUS_TEXT, WithLineFeeds(caption_).c_str());
    if (opens) ShowWindow(window_, SW_SHOW);
}

INT_PTR CALLBACK FsuipcStatusWindow::Procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(dialog, DWLP_USER, lparam);
    auto* self = reinterpret_cast<FsuipcStatusWindow*>(GetWindowLongPtrW(dialog, DWLP_USER));
    switch (message) {
    case WM_INITDIALOG:
        return TRUE;
    case WM_CTLCOLORSTATIC: {
        auto* context = reinterpret_cast<HDC>(wparam);
        if (self->red_) SetTextColor(context, RGB(200, 0, 0));
        SetBkMode(context, TRANSPARENT);
        return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_3DFACE));
    }
    case WM_COMMAND:
        if (LOWORD(wparam) == IDOK || LOWORD(wparam) == IDCANCEL) self->closed_();
        return TRUE;
    default:
        return FALSE;
    }
}

} // namespace quillon
