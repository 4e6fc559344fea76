#pragma once

#include "win32/print/Paper.h"
#include "win32/print/PrintProgress.h"

#include <functional>

namespace quillon {

/// A document being printed.
class WinPrintJob : public PrintJob {
  public:
    /// `owner` is disabled while the progress dialog is open; `pages` is the number of pages to come.
    WinPrintJob(DeviceContext device, HWND owner, int pages);
    ~WinPrintJob() override;
    WinPrintJob(const WinPrintJob&) = delete;
    WinPrintJob& operator=(const WinPrintJob&) = delete;

    /// Returns false if the user cancelled; raises PrinterError if the printer refuses.
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
