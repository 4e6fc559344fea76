#include "Grid.h"

#include "win32/window/Controls.h"

#include <algorithm>

namespace practice {

using quillon::Cell;
using quillon::Grows;
using quillon::Row;

namespace {

constexpr int Edge = 14; // lengths at 96 dpi
constexpr int Gap = 8;

struct Style {
    const wchar_t* window_class;
    DWORD style;
    DWORD extended;
};

Style StyleOf(Kind kind) {
    switch (kind) {
    case Kind::Edit:
        return {L"EDIT", WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE};
    case Kind::Combo:
        return {L"COMBOBOX", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, 0};
    case Kind::Check:
        return {L"BUTTON", WS_TABSTOP | BS_AUTOCHECKBOX, 0};
    case Kind::Heading:
        break;
    }
    return {L"STATIC", SS_ETCHEDHORZ, 0};
}

std::wstring WithoutMnemonic(std::wstring text) {
    std::erase(text, L'&');
    return text;
}

} // namespace

Grid::Placed Grid::Make(HWND parent, const Item& item) {
    const bool check = item.kind == Kind::Check; // shows its label itself
    const Style style = StyleOf(item.kind);
    return {item, quillon::AddControl(parent, L"STATIC", check ? L"" : item.label, SS_LEFT, -1),
            quillon::AddControl(parent, style.window_class, check ? item.label : L"", style.style, item.id,
                                style.extended)};
}

void Grid::Create(HWND parent, const std::vector<Item>& items) {
    for (const Item& item : items) placed_.push_back(Make(parent, item));
}

/// The text that sets the width of a column of labels.
std::wstring Grid::WidestLabel(const quillon::Theme& theme, int column) const {
    const auto width = [&](const std::wstring& text) { return theme.Measure(theme.Text(), text).cx; };
    std::wstring widest;
    for (const Placed& placed : placed_) {
        const std::wstring text = WithoutMnemonic(placed.item.label);
        const bool labelled = placed.item.kind == Kind::Edit || placed.item.kind == Kind::Combo;
        if (labelled && placed.item.column == column && width(text) > width(widest)) widest = text;
    }
    return widest;
}

std::vector<Cell> Grid::Cells(const quillon::Theme& theme, const Placed& placed) const {
    Cell label(placed.label, WidestLabel(theme, placed.item.column), 0);
    label.drop = 3; // puts its text level with the box's
    Cell box(placed.box, L"vanish-in-flight", 32);
    if (placed.item.wide) box = {placed.box, Grows};
    if (placed.item.kind == Kind::Combo) box.list_height = 300;
    return {placed.item.column == 0 ? Edge : 2 * Gap, label, Gap, box};
}

std::vector<Row> Grid::Rows(const quillon::Theme& theme) const {
    const auto combo = std::find_if(placed_.begin(), placed_.end(),
                                    [](const Placed& placed) { return placed.item.kind == Kind::Combo; });
    const int box_height = MulDiv(quillon::HeightOf(combo->box), 96, static_cast<int>(theme.Dpi()));
    std::vector<Row> rows{Edge - Gap};
    for (const Placed& placed : placed_) {
        std::vector<Cell> cells = Cells(theme, placed);
        if (placed.item.kind == Kind::Heading) {
            const std::vector<Cell> line{Edge, {placed.box, Grows}};
            rows.insert(rows.end(), {Gap, {15, {Edge, {placed.label, Grows}}}, 2, {2, line}, Gap});
        } else if (placed.item.column == 0) {
            rows.insert(rows.end(), {{box_height, cells}, Gap});
        } else {
            std::vector<Cell>& row = rows[rows.size() - 2].cells;
            row.insert(row.end(), cells.begin(), cells.end());
        }
    }
    rows.emplace_back(Edge - Gap);
    return rows;
}

SIZE Grid::Place(const quillon::Theme& theme) {
    for (const Placed& placed : placed_) {
        quillon::SetFonts({placed.label}, placed.item.kind == Kind::Heading ? theme.Bold() : theme.Text());
        quillon::SetFonts({placed.box}, theme.Text());
    }
    const std::vector<Row> rows = Rows(theme);
    const SIZE size = quillon::SizeOf(theme, rows);
    quillon::PlaceRows(theme, rows, size);
    return {size.cx + theme.Px(Edge), size.cy};
}

} // namespace practice
