#include "win32/window/Dialogs.h"

#include "win32/system/Utf16.h"
#include "win32/window/Controls.h"
#include "win32/window/DialogIds.h"
#include "win32/window/Theme.h"

#include <algorithm>

namespace quillon {

std::wstring WithLineFeeds(const std::string& text) {
    std::wstring lines;
    for (const wchar_t unit : Wide(text)) {
        lines += unit;
        if (unit == L'\r') lines += L'\n';
    }
    return lines;
}

void PrepareDialog(HWND dialog) {
    MatchTitleToApps(dialog);
    RECT owner{};
    RECT own{};
    HWND above = GetWindow(dialog, GW_OWNER);
    if (above == nullptr || !GetWindowRect(above, &owner)) return;
    GetWindowRect(dialog, &own);
    SetWindowPos(dialog, nullptr, (owner.left + owner.right - (own.right - own.left)) / 2,
                 (owner.top + owner.bottom - (own.bottom - own.top)) / 2, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

namespace {

RECT AreaOf(HWND dialog, HWND control) {
    RECT area{};
    GetWindowRect(control, &area);
    MapWindowPoints(HWND_DESKTOP, dialog, reinterpret_cast<POINT*>(&area), 2);
    return area;
}

int HeightOfText(HWND label, int width) {
    RECT area{0, 0, width, 0};
    HDC context = GetDC(label);
    const HGDIOBJ old = SelectObject(context, FontOf(label));
    DrawTextW(context, TextOf(label).c_str(), -1, &area, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(context, old);
    ReleaseDC(label, context);
    return area.bottom;
}

} // namespace

void FitToText(HWND dialog, int label_id) {
    HWND label = GetDlgItem(dialog, label_id);
    const RECT area = AreaOf(dialog, label);
    const int width = area.right - area.left;
    const int height = HeightOfText(label, width);
    const int growth = height - (area.bottom - area.top);
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        const RECT below = AreaOf(dialog, child);
        if (below.top >= area.bottom)
            MoveControl(child, below.left, below.top + growth, below.right - below.left,
                        below.bottom - below.top);
    }
    MoveControl(label, area.left, area.top, width, height);
    RECT outside{};
    GetWindowRect(dialog, &outside);
    SetWindowPos(dialog, nullptr, 0, 0, outside.right - outside.left, outside.bottom - outside.top + growth,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

std::string TextOfItem(HWND dialog, int id) {
    return Narrow(TextOf(GetDlgItem(dialog, id)));
}

namespace {

struct Question {
    std::string title;
    std::string prompt;
    std::string answer;
};

void Ask(HWND dialog, const Question& question) {
    SetWindowTextW(dialog, Wide(question.title).c_str());
    SetDlgItemTextW(dialog, IDC_PROMPT, WithLineFeeds(question.prompt).c_str());
    FitToText(dialog, IDC_PROMPT);
    PrepareDialog(dialog);
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

INT_PTR CALLBACK AboutProcedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
        PrepareDialog(dialog);
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
        PrepareDialog(dialog);
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

/// Blanks align the values only in a monospaced font, so a tab replaces them.
std::wstring WithTabs(std::wstring text) {
    for (std::size_t at = text.find(L":  "); at != std::wstring::npos; at = text.find(L":  ", at)) {
        ++at;
        text.replace(at, std::min(text.find_first_not_of(L' ', at), text.size()) - at, L"\t");
    }
    return text;
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

std::string AskForText(HWND owner, const std::string& title, const std::string& prompt,
                       const std::string& default_answer) {
    Question question{title, prompt, default_answer};
    const INT_PTR ended = DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_INPUT), owner,
                                          InputProcedure, reinterpret_cast<LPARAM>(&question));
    return ended == IDOK ? question.answer : "";
}

void FsuipcStatusWindow::Sync(HWND owner, const frmShow_FSUIPC& form) {
    if (!form.Visible) return CloseWindow();
    const bool opens = Window() == nullptr;
    if (opens) OpenWindow(IDD_FSUIPC_STATUS, owner);
    if (Window() == nullptr) return;
    if (!opens && caption_ == form.LabelCaption && red_ == form.LabelRed) return;
    caption_ = form.LabelCaption;
    red_ = form.LabelRed;
    SetDlgItemTextW(Window(), IDC_STATUS_TEXT, WithLineFeeds(caption_).c_str());
    FitToText(Window(), IDC_STATUS_TEXT); // up to three times as long when there is a problem to explain
    if (!opens) return;
    PrepareDialog(Window());
    ShowWindow(Window(), SW_SHOW);
}

/// A red that is legible on light and dark backgrounds.
COLORREF FsuipcStatusWindow::TextColor() const {
    if (!red_) return GetSysColor(COLOR_BTNTEXT);
    const COLORREF face = GetSysColor(COLOR_3DFACE);
    const bool dark = GetRValue(face) + GetGValue(face) + GetBValue(face) < 3 * 128;
    return dark ? RGB(255, 110, 110) : RGB(200, 0, 0);
}

void FsuipcStatusWindow::Draw(const DRAWITEMSTRUCT& item) const {
    constexpr UINT NameWidth = 15; // characters
    RECT area = item.rcItem;
    FillRect(item.hDC, &area, GetSysColorBrush(COLOR_3DFACE));
    SelectObject(item.hDC, FontOf(item.hwndItem));
    SetTextColor(item.hDC, TextColor());
    SetBkMode(item.hDC, TRANSPARENT);
    DrawTextW(item.hDC, WithTabs(TextOf(item.hwndItem)).c_str(), -1, &area,
              DT_WORDBREAK | DT_NOPREFIX | DT_EXPANDTABS | DT_TABSTOP | NameWidth << 8U);
}

INT_PTR FsuipcStatusWindow::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
    case WM_INITDIALOG:
        return TRUE;
    case WM_DRAWITEM:
        Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam));
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wparam) == IDOK || LOWORD(wparam) == IDCANCEL) closed_();
        return TRUE;
    default:
        return FALSE;
    }
}

} // namespace quillon
