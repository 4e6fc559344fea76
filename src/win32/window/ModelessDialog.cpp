#include "win32/window/ModelessDialog.h"

#include <utility>

namespace quillon {

void ModelessDialog::OpenWindow(int resource, HWND owner) {
    CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(resource), owner, Procedure,
                       reinterpret_cast<LPARAM>(this));
}

void ModelessDialog::CloseWindow() {
    if (window_ != nullptr) DestroyWindow(std::exchange(window_, nullptr));
}

INT_PTR CALLBACK ModelessDialog::Procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lparam);
        reinterpret_cast<ModelessDialog*>(lparam)->window_ = dialog;
    }
    auto* self = reinterpret_cast<ModelessDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (self == nullptr || self->window_ == nullptr) return FALSE;
    if (message == WM_DESTROY) {
        self->window_ = nullptr;
        return FALSE;
    }
    try {
        return self->Handle(message, wparam, lparam);
    } catch (...) { // nothing may be thrown through Windows
        return FALSE;
    }
}

} // namespace quillon
