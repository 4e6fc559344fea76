#pragma once

#include "ports/Clock.h"
#include "ports/Printer.h"
#include "state/Forms.h"

#include <cstdint>

namespace quillon {

inline constexpr const char* MasterListTitle = "Quillon Master List";

/// Sheets of paper for a list of that many rows: the page behind a full last one holds its closing footer.
std::size_t SheetsFor(std::size_t rows);

/// The page count that the footers state. It is reckoned at 62 rows to a page where a page takes 55, so it can
/// be more or less than the sheets. Raises error 6 when it fits no 16 bits.
std::int16_t TotalPagesFor(std::size_t rows);

/// The row of one feed. A long description keeps its start and a long address its end, both marked by "...".
PrintedLine PrintRow(const FeedRecord& feed);

/// Adds the title block to the page.
void PrintHeader(PrintedPage& page);

/// Counts the page and adds its footer, with the count and the time.
void PrintFooter(PrintedPage& page, frmATC& form, TimePoint now);

/// The page that follows the first `PageNumber` ones of the form's list, header and footer included.
PrintedPage PrintNextPage(frmATC& form, TimePoint now);

} // namespace quillon
