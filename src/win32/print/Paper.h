#pragma once

#include "ports/Printer.h"
#include "win32/window/Theme.h"

#include <windows.h>

namespace quillon {

using DeviceContext = Handle<HDC, DeleteDC>;

/// A printer's paper as pages are set on it: 120 columns over the printable width, each at most 6 points, and
/// lines that let the longest page fit. Type is squeezed until a character fits into a column; on paper shorter
/// than the longest page in 10 points it is made smaller.
class Paper {
  public:
    explicit Paper(HDC device);

    /// Draws the page on the device's current page. What is too long for its place is cut off.
    void Draw(const PrintedPage& page) const;

  private:
    void DrawLine(const PrintedLine& line, int top) const;
    int Left(int column) const;
    const Font& FontOf(PrintFont font) const { return font == PrintFont::Heading ? heading_ : normal_; }

    HDC device_;
    double line_px_; // of a line, per point of its type
    double type_px_; // of a point of type
    Font normal_;
    Font heading_;
    double column_px_;
    double squeeze_; // of all that is drawn, sideways
};

} // namespace quillon
