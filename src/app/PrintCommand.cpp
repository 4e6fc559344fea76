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
    trap_.StartupStep() = "Choosing Printer";
    if (printer_.ShowPrinter() && PrintList()) last_search_text_.clear();
    trap_.StartupStep().clear();
}

bool PrintCommand::PrintList() {
    const std::size_t rows = form_.lvwDB.Items().size();
    // A list with too many pages to number is refused here, before any paper is used.
    const std::int16_t sheets = CInt(static_cast<double>(SheetsFor(rows)));
    form_.PageNumber = 0;
    form_.TotalPages = TotalPagesFor(rows);
    trap_.StartupStep() = "Printing Header";
    const auto job = printer_.StartJob(MasterListTitle, sheets);
    return job && PrintPages(*job, sheets);
}

bool PrintCommand::PrintPages(PrintJob& job, std::int16_t sheets) {
    trap_.StartupStep() = "Print data";
    while (form_.PageNumber < sheets)
        if (!job.PrintPage(PrintNextPage(form_, clock_.Now()))) return false;
    trap_.StartupStep() = "Print footer";
    return job.Finish();
}

} // namespace quillon
