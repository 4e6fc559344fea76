#pragma once

#include "win32/window/ModelessDialog.h"

namespace quillon {

/// The dialog that shows how far a print job has come and can cancel it. It opens by itself when the job takes
/// longer than one would wait without a word; meanwhile its owner is disabled.
class PrintProgress : public ModelessDialog {
  public:
    /// `pages` is what the job will have.
    PrintProgress(HWND owner, int pages);
    ~PrintProgress() override;
    PrintProgress(const PrintProgress&) = delete;
    PrintProgress& operator=(const PrintProgress&) = delete;

    /// The page that is now being printed, counted from 1.
    void SetPage(int page);

    bool Cancelled() const { return cancelled_; }

    /// Lets window events in, once the dialog is open. Returns false when the user has cancelled.
    bool Serve();

  private:
    INT_PTR Handle(UINT message, WPARAM wparam, LPARAM lparam) override;
    void Open();
    void ShowPage();
    void Dispatch(MSG& message);

    HWND owner_;
    int pages_;
    int page_ = 0;
    ULONGLONG start_ms_ = GetTickCount64();
    bool cancelled_ = false;
};

} // namespace quillon
