#pragma once

#include "win32/window/Layout.h"

#include <windows.h>

#include <vector>

namespace practice {

enum class Kind { Heading, Edit, Combo, Check };

/// One entry of the grid of two columns: a box with its label before it, or a heading over the whole width.
struct Item {
    Kind kind;
    int id;
    int column; ///< 0 starts a row
    const wchar_t* label;
    bool wide = false; ///< the box reaches over both columns
};

/// The boxes of a window, made from a table and laid out by the size of their texts.
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
