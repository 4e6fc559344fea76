#pragma once

#include "win32/window/ModelessDialog.h"

namespace quillon {

/// The dialog that shows the progress of a print job and can cancel it. It opens once the job has taken half a
/// second; its owner is disabled while it is open.
class PrintProgress : public ModelessDialog {
  public:
    /// `pages` is the number of pages in the job.
    PrintProgress(HWND owner, int pages);
    ~PrintProgress() override;
    PrintProgress(const PrintProgress&) = delete;
    PrintProgress& operator=(const PrintProgress&) = delete;

    /// The page being printed, from 1.
    void SetPage(int page);

    bool Cancelled() const { return cancelled_; }

    /// Opens the dialog when it is time, and handles messages while it is open. Returns false once the user has
    /// cancelled.
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
