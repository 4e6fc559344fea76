#pragma once

#include "ports/Printer.h"
#include "win32/window/Theme.h"

#include <windows.h>

namespace quillon {

using DeviceContext = Handle<HDC, DeleteDC>;

/// The printable area of a printer's page as 120 columns, each at most 6 points wide, and lines so high that
/// the longest page fits. Type is condensed until a character fits a column, and smaller than 10 points on
/// paper that is too short for the longest page.
class Paper {
  public:
    explicit Paper(HDC device);

    /// Draws on the device's current page. Text that is too long for its place is cut off.
    void Draw(const PrintedPage& page) const;

  private:
    void DrawLine(const PrintedLine& line, int top) const;
    int Left(int column) const;
    const Font& FontOf(PrintFont font) const { return font == PrintFont::Heading ? heading_ : normal_; }

    HDC device_;
    double line_px_; // line height per point of type
    double type_px_; // one point of type
    Font normal_;
    Font heading_;
    double column_px_;
    double squeeze_; // horizontal scale, at most 1
};

} // namespace quillon
