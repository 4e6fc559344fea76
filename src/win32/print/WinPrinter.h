#pragma once

#include "ports/Printer.h"
#include "win32/print/Paper.h"

#include <windows.h>

#include <functional>

namespace quillon {

/// The system's print dialog and printers.
class WinPrinter : public Printer {
  public:
    /// `owner` updates the windows and returns the one that owns a dialog, and is disabled meanwhile.
    explicit WinPrinter(std::function<HWND()> owner) : owner_(std::move(owner)) {}

    bool ShowPrinter() override;
    std::unique_ptr<PrintJob> StartJob(const std::string& title, int pages) override;

  private:
    std::function<HWND()> owner_;
    DeviceContext chosen_;
};

} // namespace quillon
