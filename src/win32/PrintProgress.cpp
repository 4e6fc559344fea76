#include "win32/PrintProgress.h"

#include "win32/DialogIds.h"
#include "win32/Dialogs.h"

#include <commctrl.h>
#include <string>

namespace quillon {

PrintProgress::PrintProgress(HWND owner, int pages) : owner_(owner), pages_(pages) {}

PrintProgress::~PrintProgress() {
    if (dialog_ == nullptr) return;
    EnableWindow(owner_, TRUE); // first, or another program's window would come to the front
    DestroyWindow(dialog_);
}

void PrintProgress::SetPage(int page) {
    page_ = page;
    ShowPage();
}

void PrintProgress::ShowPage() {
    if (dialog_ == nullptr) return;
    const std::wstring text = L"Printing page " + std::to_wstring(page_) + L" of " + std::to_wstring(pages_);
    SetDlgItemTextW(dialog_, IDC_PRINT_PAGE, text.c_str());
    SendDlgItemMessageW(dialog_, IDC_PRINT_BAR, PBM_SETPOS, static_cast<WPARAM>(page_), 0);
}

void PrintProgress::Open() {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&classes);
    dialog_ = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_PRINT_PROGRESS), owner_,
                                 Procedure, reinterpret_cast<LPARAM>(this));
    if (dialog_ == nullptr) return; // nothing would bring the owner back
    SendDlgItemMessageW(dialog_, IDC_PRINT_BAR, PBM_SETRANGE32, 0, pages_);
    ShowPage();
    EnableWindow(owner_, FALSE);
    ShowWindow(dialog_, SW_SHOW);
}

bool PrintProgress::Serve() {
    constexpr ULONGLONG PatienceMs = 500;
    if (dialog_ == nullptr && GetTickCount64() - start_ms_ >= PatienceMs) Open();
    MSG message;
    while (dialog_ != nullptr && !cancelled_ && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        Dispatch(message);
    return !cancelled_;
}

void PrintProgress::Dispatch(MSG& message) {
    if (message.message == WM_QUIT) { // is for the program's own loop
        cancelled_ = true;
        PostQuitMessage(static_cast<int>(message.wParam));
    } else if (!IsDialogMessageW(dialog_, &message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

INT_PTR CALLBACK PrintProgress::Procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lparam);
        PrepareDialog(dialog);
        return TRUE;
    }
    if (message != WM_COMMAND || LOWORD(wparam) != IDCANCEL) return FALSE;
    reinterpret_cast<PrintProgress*>(GetWindowLongPtrW(dialog, DWLP_USER))->cancelled_ = true;
    return TRUE;
}

} // namespace quillon
