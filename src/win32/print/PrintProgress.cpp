#include "win32/print/PrintProgress.h"

#include "win32/window/DialogIds.h"
#include "win32/window/Dialogs.h"

#include <commctrl.h>
#include <string>

namespace quillon {

PrintProgress::PrintProgress(HWND owner, int pages) : owner_(owner), pages_(pages) {}

PrintProgress::~PrintProgress() {
    if (Window() == nullptr) return;
    EnableWindow(owner_, TRUE); // first, or Windows would activate another program's window
}

void PrintProgress::SetPage(int page) {
    page_ = page;
    ShowPage();
}

void PrintProgress::ShowPage() {
    if (Window() == nullptr) return;
    const std::wstring text = L"Printing page " + std::to_wstring(page_) + L" of " + std::to_wstring(pages_);
    SetDlgItemTextW(Window(), IDC_PRINT_PAGE, text.c_str());
    SendDlgItemMessageW(Window(), IDC_PRINT_BAR, PBM_SETPOS, static_cast<WPARAM>(page_), 0);
}

void PrintProgress::Open() {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&classes);
    OpenWindow(IDD_PRINT_PROGRESS, owner_);
    if (Window() == nullptr) return; // nothing would enable the owner again
    SendDlgItemMessageW(Window(), IDC_PRINT_BAR, PBM_SETRANGE32, 0, pages_);
    ShowPage();
    EnableWindow(owner_, FALSE);
    ShowWindow(Window(), SW_SHOW);
}

bool PrintProgress::Serve() {
    constexpr ULONGLONG PatienceMs = 500;
    if (Window() == nullptr && GetTickCount64() - start_ms_ >= PatienceMs) Open();
    MSG message;
    while (Window() != nullptr && !cancelled_ && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        Dispatch(message);
    return !cancelled_;
}

void PrintProgress::Dispatch(MSG& message) {
    if (message.message == WM_QUIT) { // left for the main loop
        cancelled_ = true;
        PostQuitMessage(static_cast<int>(message.wParam));
    } else if (!IsDialogMessageW(Window(), &message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

INT_PTR PrintProgress::Handle(UINT message, WPARAM wparam, LPARAM) {
    if (message == WM_INITDIALOG) {
        PrepareDialog(Window());
        return TRUE;
    }
    if (message != WM_COMMAND || LOWORD(wparam) != IDCANCEL) return FALSE;
    cancelled_ = true;
    return TRUE;
}

} // namespace quillon
