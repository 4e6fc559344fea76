#pragma once

#include <memory>
#include <string>
#include <vector>

namespace quillon {

// A printed page as data: lines from the top of the printable area downwards.

enum class PrintFont { Normal, Heading };

/// Type size in points; a heading is bold as well.
constexpr int PointsOf(PrintFont font) {
    return font == PrintFont::Heading ? 18 : 10;
}

/// Columns across the printable width; column 1 is at the left edge. A column holds one character of normal
/// type.
inline constexpr int PageColumns = 120;

/// Sum of the type sizes, in points, of the lines of the longest page. The paper must have room for that much.
inline constexpr int PageTypePoints = 646;

struct PrintedText {
    int Column;
    std::string Text;

    bool operator==(const PrintedText&) const = default;
};

/// Texts in ascending order of column; a line without texts is left blank in its font's height.
struct PrintedLine {
    PrintFont Font = PrintFont::Normal;
    std::vector<PrintedText> Texts;
};

using PrintedPage = std::vector<PrintedLine>;

/// A document on its way to the printer. Destroying it without Finish discards it, except for printed pages.
class PrintJob {
  public:
    virtual ~PrintJob() = default;

    /// Prints one sheet. A text that would run into the next one, or over the paper's edge, is cut off there.
    /// A long job shows its progress with a Cancel button and then serves window events. Returns false if the
    /// user cancelled. Raises RuntimeError 482 if the printer fails.
    virtual bool PrintPage(const PrintedPage& page) = 0;

    /// Hands the finished document to the printer; no more pages may follow. Returns and raises as PrintPage
    /// does.
    virtual bool Finish() = 0;
};

/// The user's printers.
class Printer {
  public:
    virtual ~Printer() = default;

    /// Lets the user choose printer, paper and copies for one document in the system's dialog. Modal, serves
    /// window events. Returns false if the user cancelled. Raises RuntimeError 482 if there is no printer.
    virtual bool ShowPrinter() = 0;

    /// Starts a document of that many pages on the chosen printer. Returns null if the user cancelled a
    /// question of the printer's own, such as for the file to write. Raises RuntimeError 482 if the printer
    /// refuses.
    virtual std::unique_ptr<PrintJob> StartJob(const std::string& title, int pages) = 0;
};

} // namespace quillon
