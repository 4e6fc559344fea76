#include "Grid.h"

#include <algorithm>

namespace practice {

namespace {

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

HWND MakeControl(HWND parent, const Style& style, const wchar_t* text, int id) {
    const auto menu = reinterpret_cast<HMENU>(static_cast<INT_PTR>(id));
    return CreateWindowExW(style.extended, style.window_class, text, WS_CHILD | WS_VISIBLE | style.style, 0, 0,
                           10, 300, parent, menu, GetModuleHandleW(nullptr), nullptr);
}

std::wstring WithoutMnemonic(std::wstring text) {
    std::erase(text, L'&');
    return text;
}

void SetFont(HWND control, HFONT font) {
    if (control) SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

int HeightOf(HWND control) {
    RECT area{};
    GetWindowRect(control, &area);
    return area.bottom - area.top;
}

void Move(HWND control, int left, int top, int width, int height) {
    if (control) SetWindowPos(control, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace

struct Grid::Measures {
    int margin;
    int gap;
    int text_height;
    int box_height;
    int drop_height;
    int label_width[2]{};
    int box_width;

    int Left(int column) const { return margin + column * (label_width[0] + box_width + 3 * gap); }
    int BoxLeft(int column) const { return Left(column) + label_width[column] + gap; }
    int Right() const { return BoxLeft(1) + box_width; }
};

Grid::Placed Grid::Make(HWND parent, const Item& item) {
    const bool labelled = item.kind != Kind::Check;
    HWND label = labelled ? MakeControl(parent, {L"STATIC", SS_LEFT, 0}, item.label, -1) : nullptr;
    return {item, label, MakeControl(parent, StyleOf(item.kind), labelled ? L"" : item.label, item.id)};
}

void Grid::Create(HWND parent, const std::vector<Item>& items) {
    for (const Item& item : items) placed_.push_back(Make(parent, item));
}

Grid::Measures Grid::Measure(const quillon::Theme& theme) const {
    Measures measures{theme.Px(14), theme.Px(8), 0, 0, theme.Px(300), {}, 0};
    measures.text_height = theme.Measure(theme.Bold(), L"Ag").cy;
    measures.box_width = theme.Measure(theme.Text(), L"vanish-in-flight").cx + theme.Px(32);
    for (const Placed& placed : placed_) {
        if (placed.item.kind == Kind::Heading) continue;
        const int width = theme.Measure(theme.Text(), WithoutMnemonic(placed.item.label)).cx;
        int& widest = measures.label_width[placed.item.column];
        if (placed.label) widest = std::max(widest, width);
        if (placed.item.kind == Kind::Combo)
            measures.box_height = std::max(measures.box_height, HeightOf(placed.box));
    }
    return measures;
}

/// Returns the top of the next row.
int Grid::PlaceRow(int row, int top, const Measures& m) const {
    const int label_top = (m.box_height - m.text_height - 1) / 2;
    int bottom = top;
    for (const Placed& placed : placed_) {
        if (placed.item.row != row) continue;
        const int column = placed.item.column;
        const int left = m.BoxLeft(column);
        if (placed.item.kind == Kind::Heading) {
            Move(placed.label, m.margin, top, m.Right() - m.margin, m.text_height);
            Move(placed.box, m.margin, top + m.text_height + m.gap / 2, m.Right() - m.margin, 2);
            return top + m.text_height + m.gap / 2 + 2 + m.gap;
        }
        const bool drops = placed.item.kind == Kind::Combo;
        Move(placed.label, m.Left(column), top + label_top, m.label_width[column], m.text_height);
        Move(placed.box, left, top, placed.item.wide ? m.Right() - left : m.box_width,
             drops ? m.drop_height : m.box_height);
        bottom = top + m.box_height + m.gap;
    }
    return bottom;
}

SIZE Grid::Place(const quillon::Theme& theme) {
    for (const Placed& placed : placed_) {
        SetFont(placed.label, placed.item.kind == Kind::Heading ? theme.Bold() : theme.Text());
        SetFont(placed.box, theme.Text());
    }
    const Measures measures = Measure(theme);
    int top = measures.margin;
    const int last_row = placed_.back().item.row;
    for (int row = 0; row <= last_row; ++row) {
        const bool heading =
            row > 0 && std::any_of(placed_.begin(), placed_.end(), [row](const Placed& placed) {
                return placed.item.row == row && placed.item.kind == Kind::Heading;
            });
        top = PlaceRow(row, heading ? top + measures.gap : top, measures);
    }
    return {measures.Right() + measures.margin, top + measures.margin - measures.gap};
}

} // namespace practice
