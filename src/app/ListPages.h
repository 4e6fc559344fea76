#pragma once

#include "ports/Clock.h"
#include "ports/Printer.h"
#include "state/Forms.h"

#include <cstdint>

namespace quillon {

inline constexpr const char* MasterListTitle = "Quillon Master List";

/// Sheets of paper for a list of that many rows. A full last page is followed by one with only header and
/// footer.
std::size_t SheetsFor(std::size_t rows);

/// The page count in the footers. It assumes 62 rows per page while a page holds 55, so it may differ from the
/// number of sheets. Raises error 6 if it does not fit 16 bits.
std::int16_t TotalPagesFor(std::size_t rows);

/// The row of one feed. A long city is cut at its end and a long address at its start, both marked by "...".
PrintedLine PrintRow(const FeedRecord& feed);

/// Adds the title block to the page.
void PrintHeader(PrintedPage& page);

/// Counts the page and adds its footer with page number and time.
void PrintFooter(PrintedPage& page, frmATC& form, TimePoint now);

/// The page after the first `PageNumber` pages of the form's list, with header and footer.
PrintedPage PrintNextPage(frmATC& form, TimePoint now);

} // namespace quillon
