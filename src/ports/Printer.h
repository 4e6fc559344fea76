#pragma once

#include <memory>
#include <string>
#include <vector>

namespace quillon {

// A printed page as data: lines from the top of the paper's printable area downwards, one below the other.

enum class PrintFont { Normal, Heading };

/// Type size in points; a heading is bold as well.
constexpr int PointsOf(PrintFont font) {
    return font == PrintFont::Heading ? 18 : 10;
}

/// Columns to the printable width; column 1 stands at its left edge. A column holds a character of normal type.
inline constexpr int PageColumns = 120;

/// What the lines of the longest page add up to in type sizes, points. A printer's paper must hold that much.
inline constexpr int PageTypePoints = 646;

struct PrintedText {
    int Column;
    std::string Text;

    bool operator==(const PrintedText&) const = default;
};

/// Texts by rising column; a line without texts is empty but takes its font's room.
struct PrintedLine {
    PrintFont Font = PrintFont::Normal;
    std::vector<PrintedText> Texts;
};

using PrintedPage = std::vector<PrintedLine>;

/// A document on its way to the printer. One that goes without Finish is thrown away, printed pages excepted.
class PrintJob {
  public:
    virtual ~PrintJob() = default;

    /// Prints one sheet. A text that would run into the next one, or over the paper's edge, is cut off there.
    /// A job that takes long shows its progress with a way to cancel it: window events get in then. Returns
    /// false when the user cancelled. Raises RuntimeError 482 when the printer fails.
    virtual bool PrintPage(const PrintedPage& page) = 0;

    /// Hands the finished document over to the printer; no more pages may follow. Returns and raises as
    /// PrintPage does.
    virtual bool Finish() = 0;
};

/// The user's printers.
class Printer {
  public:
    virtual ~Printer() = default;

    /// Lets the user choose printer, paper and copies for one document in the system's dialog. Modal; window
    /// events get in. Returns false when the user cancelled. Raises RuntimeError 482 when there is no printer
    /// to choose.
    virtual bool ShowPrinter() = 0;

    /// Starts a document of that many pages on the chosen printer. Returns null when the user cancelled where
    /// a printer asks for more (the file it is to write). Raises RuntimeError 482 when the printer refuses.
    virtual std::unique_ptr<PrintJob> StartJob(const std::string& title, int pages) = 0;
};

} // namespace quillon
