#pragma once

#include "ports/Printer.h"
#include "win32/print/Paper.h"

#include <windows.h>

#include <functional>

namespace quillon {

/// The system's print dialog and the printers behind it.
class WinPrinter : public Printer {
  public:
    /// `owner` brings the windows up to date and names the one that a dialog stands above (and blocks).
    explicit WinPrinter(std::function<HWND()> owner) : owner_(std::move(owner)) {}

    bool ShowPrinter() override;
    std::unique_ptr<PrintJob> StartJob(const std::string& title, int pages) override;

  private:
    std::function<HWND()> owner_;
    DeviceContext chosen_;
};

} // namespace quillon
