#include "win32/print/WinPrinter.h"

#include "runtime/Number.h"
#include "runtime/RuntimeError.h"
#include "win32/print/WinPrintJob.h"
#include "win32/system/LateFunction.h"

#include <cderr.h>
#include <commdlg.h>
#include <winspool.h>

namespace quillon {

namespace {

[[noreturn]] void RaiseNoPrinter() {
    throw RuntimeError{PrinterError, "There is no printer to print on. Please install a printer, or make one "
                                     "the default printer, and try again."};
}

bool HasDefaultPrinter() {
    const auto name = LateFunction<decltype(GetDefaultPrinterW)>(L"winspool.drv", "GetDefaultPrinterW");
    DWORD length = 0;
    if (name != nullptr) name(nullptr, &length); // fails, but sets the length
    return length > 0;
}

[[noreturn]] void RaiseDialogError(DWORD code) {
    if (code == PDERR_NODEFAULTPRN || code == PDERR_NODEVICES) RaiseNoPrinter();
    throw RuntimeError{PrinterError, "The print dialog failed (code " + Hex(code) + ")"};
}

} // namespace

bool WinPrinter::ShowPrinter() {
    if (!HasDefaultPrinter()) RaiseNoPrinter();
    PRINTDLGW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner_();
    dialog.Flags =
        PD_RETURNDC | PD_USEDEVMODECOPIESANDCOLLATE | PD_NOSELECTION | PD_NOPAGENUMS | PD_HIDEPRINTTOFILE;
    dialog.nCopies = 1;
    const auto show = LateFunction<decltype(PrintDlgW)>(L"comdlg32.dll", "PrintDlgW");
    const auto why = LateFunction<decltype(CommDlgExtendedError)>(L"comdlg32.dll", "CommDlgExtendedError");
    if (show == nullptr || why == nullptr) RaiseDialogError(CDERR_INITIALIZATION);
    const bool chosen = show(&dialog) != FALSE;
    const DWORD code = chosen ? 0 : why();
    chosen_.Reset(dialog.hDC);
    GlobalFree(dialog.hDevMode);
    GlobalFree(dialog.hDevNames);
    if (code != 0 || (chosen && !chosen_)) RaiseDialogError(code);
    return chosen;
}

std::unique_ptr<PrintJob> WinPrinter::StartJob(const std::string& title, int pages) {
    auto job = std::make_unique<WinPrintJob>(std::move(chosen_), owner_(), pages);
    if (!job->Start(title)) return nullptr;
    return job;
}

} // namespace quillon
