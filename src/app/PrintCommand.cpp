#include "app/PrintCommand.h"

#include "app/ListPages.h"
#include "runtime/Number.h"

namespace quillon {

void PrintCommand::mnuPrint_Click() {
    if (!prompts_.Confirm("Print Listing",
                          "The List will print as it is presently sorted, do you want to continue?",
                          Choices::YesNo))
        return;
    trap_.RunCommand("Print Data Errors", Icon::Exclamation, [this] { Print(); });
}

void PrintCommand::Print() {
    state_.StartupStep = "Choosing Printer";
    if (printer_.ShowPrinter() && PrintList()) state_.LastSearchText.clear();
    state_.StartupStep.clear();
}

bool PrintCommand::PrintList() {
    const std::size_t rows = state_.form.lvwDB.Items().size();
    // A list of more pages than can be numbered is refused here, before any paper is used.
    const std::int16_t sheets = CInt(static_cast<double>(SheetsFor(rows)));
    state_.form.PageNumber = 0;
    state_.form.TotalPages = TotalPagesFor(rows);
    state_.StartupStep = "Printing Header";
    const auto job = printer_.StartJob("Quillon Master List", sheets);
    return job && PrintPages(*job, sheets);
}

bool PrintCommand::PrintPages(PrintJob& job, std::int16_t sheets) {
    while (state_.form.PageNumber < sheets) {
        const bool last = state_.form.PageNumber == sheets - 1;
        state_.StartupStep = last ? "Print footer" : "Print data";
        if (!job.PrintPage(PrintNextPage(state_.form, clock_.Now()))) return false;
    }
    return job.Finish();
}

} // namespace quillon
