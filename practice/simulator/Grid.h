#pragma once

#include "win32/window/Layout.h"

#include <windows.h>

#include <vector>

namespace practice {

enum class Kind { Heading, Edit, Combo, Check };

/// One entry of a two-column grid: a box with a label before it, or a heading across both columns.
struct Item {
    Kind kind;
    int id;
    int column; ///< 0 starts a row
    const wchar_t* label;
    bool wide = false; ///< the box spans both columns
};

/// The controls of a window, made from a table. Columns are as wide as their longest label.
class Grid {
  public:
    void Create(HWND parent, const std::vector<Item>& items);

    /// Puts everything in its place. Returns the grid's size in pixels.
    SIZE Place(const quillon::Theme& theme);

  private:
    struct Placed {
        Item item;
        HWND label;
        HWND box; ///< the line below a heading
    };

    static Placed Make(HWND parent, const Item& item);
    std::vector<quillon::Row> Rows(const quillon::Theme& theme) const;
    std::vector<quillon::Cell> Cells(const quillon::Theme& theme, const Placed& placed) const;
    std::wstring WidestLabel(const quillon::Theme& theme, int column) const;

    std::vector<Placed> placed_;
};

} // namespace practice
