#include "win32/window/Layout.h"

#include "win32/window/Controls.h"

#include <algorithm>

namespace quillon {

namespace {

/// Where a row's controls go, in pixels.
struct Band {
    int top;
    int height;
    int control_top;
    int control_height;
};

int CaptionHeight(const Theme& theme, const Row& row) {
    const bool grouped =
        std::any_of(row.cells.begin(), row.cells.end(), [](const Cell& cell) { return !cell.members.empty(); });
    return grouped ? LineHeight(theme) : 0;
}

int HeightOf(const Theme& theme, const Row& row) {
    return theme.Px(row.height) + CaptionHeight(theme, row);
}

Band BandOf(const Theme& theme, const Row& row, int top, int height) {
    const int controls = row.control_height == 0 ? height : theme.Px(row.control_height);
    const int caption = CaptionHeight(theme, row);
    const int lift = caption == 0 ? 0 : theme.Px(2); // looks centred between caption and edge
    return {top, height, top + caption + (height - caption - controls) / 2 - lift, controls};
}

int WidthOf(const Theme& theme, const std::vector<Cell>& cells) {
    int width = 0;
    for (const Cell& cell : cells) {
        width += theme.Px(cell.width);
        if (!cell.text.empty()) width += theme.Measure(FontOf(cell.control), cell.text).cx;
        if (!cell.members.empty()) width += WidthOf(theme, cell.members) + theme.Px(2 * Margin);
    }
    return width;
}

void PlaceControl(const Theme& theme, const Cell& cell, int x, int width, const Band& band) {
    const int drop = theme.Px(cell.drop);
    const int closed = quillon::HeightOf(cell.control);
    if (!cell.members.empty())
        MoveControl(cell.control, x, band.top, width, band.height);
    else if (cell.list_height > 0)
        MoveControl(cell.control, x, band.control_top + (band.control_height - closed) / 2, width,
                    theme.Px(cell.list_height));
    else
        MoveControl(cell.control, x, band.control_top + drop, width, band.control_height - drop);
}

void PlaceCells(const Theme& theme, const std::vector<Cell>& cells, int x, int spare, const Band& band) {
    for (const Cell& cell : cells) {
        const int width = WidthOf(theme, {cell}) + (cell.grows ? spare : 0);
        if (cell.control != nullptr) PlaceControl(theme, cell, x, width, band);
        PlaceCells(theme, cell.members, x + theme.Px(Margin), 0, band);
        x += width;
    }
}

} // namespace

Cell Fitted(HWND control, int padding) {
    return {control, TextOf(control), padding};
}

SIZE SizeOf(const Theme& theme, const std::vector<Row>& rows) {
    SIZE size{};
    for (const Row& row : rows) {
        size.cx = std::max<LONG>(size.cx, WidthOf(theme, row.cells));
        size.cy += HeightOf(theme, row);
    }
    return size;
}

void PlaceRows(const Theme& theme, const std::vector<Row>& rows, SIZE area) {
    const int spare_height = std::max<LONG>(0, area.cy - SizeOf(theme, rows).cy);
    int top = 0;
    for (const Row& row : rows) {
        const int height = HeightOf(theme, row) + (row.grows ? spare_height : 0);
        const int spare_width = std::max<LONG>(0, area.cx - WidthOf(theme, row.cells));
        PlaceCells(theme, row.cells, 0, spare_width, BandOf(theme, row, top, height));
        top += height;
    }
}

} // namespace quillon
