#pragma once

#include "win32/print/Paper.h"
#include "win32/print/PrintProgress.h"

#include <functional>

namespace quillon {

/// A document on its way to a printer of the system's.
class WinPrintJob : public PrintJob {
  public:
    /// `owner` is disabled while the progress of `pages` pages is shown.
    WinPrintJob(DeviceContext device, HWND owner, int pages);
    ~WinPrintJob() override;
    WinPrintJob(const WinPrintJob&) = delete;
    WinPrintJob& operator=(const WinPrintJob&) = delete;

    /// Returns false when the user cancelled; raises when the printer refuses.
    bool Start(const std::string& title);

    bool PrintPage(const PrintedPage& page) override;
    bool Finish() override;

  private:
    static BOOL CALLBACK AbortProcedure(HDC device, int error);
    bool Do(const std::function<int()>& call, const char* failure) const;

    DeviceContext device_;
    Paper paper_;
    PrintProgress progress_;
    int page_ = 0;
    bool open_ = false;
};

} // namespace quillon
