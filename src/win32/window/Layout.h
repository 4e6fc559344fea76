#pragma once

#include "win32/window/Theme.h"

#include <windows.h>

#include <string>
#include <vector>

namespace quillon {

// Lays controls out in rows, from left to right and from top to bottom. Lengths are in pixels at 96 dpi.

inline constexpr int Margin = 8;     ///< between a window's or a group box's edge and the controls in it
inline constexpr int CheckMark = 22; ///< what a radio button or check box needs beside its text

/// Takes what room is left. At most one cell of a row and one row of a window may grow.
enum Growth { Grows };

/// A place in a row: a control or, as a bare number, empty space.
struct Cell {
    Cell(int space) : width(space) {} // NOLINT(google-explicit-constructor)
    Cell(HWND placed, int width_96) : control(placed), width(width_96) {}
    Cell(HWND placed, std::wstring sample, int padding)
        : control(placed), width(padding), text(std::move(sample)) {}
    Cell(HWND placed, Growth) : control(placed), grows(true) {}
    Cell(HWND group_box, std::vector<Cell> grouped) : control(group_box), members(std::move(grouped)) {}

    HWND control = nullptr;
    int width = 0;
    std::wstring text; ///< its width in the control's font is added
    bool grows = false;
    std::vector<Cell> members; ///< of a group box; its row is one line higher, for its caption
    int drop = 0;              ///< the control's top lies that much lower
    int list_height = 0;       ///< of a combo box, whose own height is set by its font
};

/// As wide as the control's text and the padding.
Cell Fitted(HWND control, int padding = 0);

/// Controls side by side or, as a bare number, empty space. Controls may be lower than the row: they are
/// centred.
struct Row {
    Row(int space) : height(space) {} // NOLINT(google-explicit-constructor)
    Row(int height_96, std::vector<Cell> placed, int controls_96 = 0)
        : height(height_96), cells(std::move(placed)), control_height(controls_96) {}
    Row(std::vector<Cell> placed, Growth, int least_height = 0)
        : height(least_height), cells(std::move(placed)), grows(true) {}

    int height;
    std::vector<Cell> cells;
    int control_height = 0; ///< 0: the row's
    bool grows = false;
};

/// The smallest client area in which no control is cut off, in pixels.
SIZE SizeOf(const Theme& theme, const std::vector<Row>& rows);

/// Places the rows' controls in a client area of that size in pixels.
void PlaceRows(const Theme& theme, const std::vector<Row>& rows, SIZE area);

} // namespace quillon
