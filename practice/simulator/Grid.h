#pragma once

#include "win32/window/Theme.h"

#include <windows.h>

#include <vector>

namespace practice {

enum class Kind { Heading, Edit, Combo, Check };

/// One entry of the grid of two columns: a box with its label before it, or a heading over the whole width.
struct Item {
    Kind kind;
    int id;
    int row;
    int column;
    const wchar_t* label;
    bool wide = false; ///< the box reaches over both columns
};

/// The boxes of a window, made from a table and laid out by the size of their texts.
class Grid {
  public:
    void Create(HWND parent, const std::vector<Item>& items);

    /// Puts everything in its place. Returns the size that the grid takes.
    SIZE Place(const quillon::Theme& theme);

  private:
    struct Placed {
        Item item;
        HWND label;
        HWND box; ///< the line beside a heading
    };
    struct Measures;

    static Placed Make(HWND parent, const Item& item);
    Measures Measure(const quillon::Theme& theme) const;
    int PlaceRow(int row, int top, const Measures& measures) const;

    std::vector<Placed> placed_;
};

} // namespace practice
