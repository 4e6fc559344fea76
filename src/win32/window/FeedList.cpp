#include "win32/window/FeedList.h"

#include "runtime/Text.h"
#include "win32/system/Utf16.h"
#include "win32/window/ControlIds.h"
#include "win32/window/Controls.h"
#include "win32/window/ScreenReader.h"
#include "win32/window/ToolTips.h"

#include <algorithm>
#include <numeric>

namespace quillon {

namespace {

constexpr int TwipsPerInch = 1440;
constexpr int ArrowRoom = 36;             // at 96 dpi
constexpr std::size_t LongestCell = 1024; // a catalogue's line may be longer, but nobody reads that in a column
constexpr const wchar_t* HowToFill = L"No feeds yet.\n\nPress Ctrl+N to add one, or put a catalogue into the "
                                     L"data folder (Help, Program Folders).";

/// Mixes one part of `over` with two of `under`.
COLORREF Blend(COLORREF over, COLORREF under) {
    const auto mix = [](int a, int b) { return (a + 2 * b) / 3; };
    return RGB(mix(GetRValue(over), GetRValue(under)), mix(GetGValue(over), GetGValue(under)),
               mix(GetBValue(over), GetBValue(under)));
}

} // namespace

FeedList::FeedList(HWND parent, HWND tips, const ListView& data) : data_(data), tips_(tips) {
    constexpr DWORD Style = WS_TABSTOP | WS_GROUP | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL |
                            LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS;
    window_ = AddControl(parent, WC_LISTVIEWW, L"Feeds", Style, IdFeedList, WS_EX_CLIENTEDGE);
    ListView_SetExtendedListViewStyle(window_, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
    ScreenReader::NameParts(window_, [this](std::size_t row) { return LineOf(row); });
}

void FeedList::SetTheme(const Theme& theme) {
    theme_ = &theme;
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(theme.Text()), FALSE);
    shown_widths_ = {};
    SyncColumns();
}

void FeedList::SyncColumns() {
    if (theme_ == nullptr) return;
    for (std::size_t index = 0; index < data_.ColumnHeaders.size() && index < shown_widths_.size(); ++index) {
        const ListView::ColumnHeader& header = data_.ColumnHeaders[index];
        const int column = static_cast<int>(index);
        if (column == columns_) AddColumn(columns_++, header.Text);
        const int width = WidthOf(index);
        if (shown_widths_[index] == width) continue;
        shown_widths_[index] = width;
        ListView_SetColumnWidth(window_, column, width);
    }
}

/// In pixels. The last column fills what the others leave; a sorted column has room for its header's arrow.
int FeedList::WidthOf(std::size_t column) const {
    const ListView::ColumnHeader& header = data_.ColumnHeaders[column];
    int width = theme_->TwipsToPx(header.WidthTwips);
    if (data_.Sorted() && static_cast<std::size_t>(data_.SortKey()) == column)
        width = std::max(width, static_cast<int>(theme_->Measure(theme_->Text(), Wide(header.Text)).cx) +
                                    theme_->Px(ArrowRoom));
    if (column + 1 < shown_widths_.size()) return width;
    RECT area{};
    GetClientRect(window_, &area);
    return std::max(width, static_cast<int>(area.right) -
                               std::accumulate(shown_widths_.begin(), shown_widths_.end() - 1, 0));
}

void FeedList::AddColumn(int index, const std::string& name) {
    std::wstring text = Wide(name);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = text.data();
    ListView_InsertColumn(window_, index, &column);
}

/// A double click on a column's edge fits it to its texts; Windows then reports the new width, Wine only the
/// click. Changes while an edge is dragged are ignored until it is released.
std::optional<std::pair<Column, int>> FeedList::ResizedColumn(const NMHDR& header) {
    if (header.hwndFrom != ListView_GetHeader(window_)) return std::nullopt;
    if (header.code == HDN_BEGINTRACKW) dragging_ = true;
    if (header.code == HDN_ENDTRACKW) dragging_ = false;
    const bool may_be_resize =
        header.code == HDN_ENDTRACKW || header.code == HDN_ITEMCHANGEDW || header.code == HDN_DIVIDERDBLCLICKW;
    if (!may_be_resize || dragging_) return std::nullopt;
    const auto& change = reinterpret_cast<const NMHEADERW&>(header);
    const auto index = static_cast<std::size_t>(change.iItem);
    const bool has_width = change.pitem != nullptr && (change.pitem->mask & HDI_WIDTH) != 0;
    const int width = has_width ? change.pitem->cxy : ListView_GetColumnWidth(window_, change.iItem);
    if (index >= shown_widths_.size() || width == shown_widths_[index]) return std::nullopt;
    shown_widths_[index] = width;
    return std::pair(static_cast<Column>(index), MulDiv(width, TwipsPerInch, static_cast<int>(theme_->Dpi())));
}

void FeedList::Sync() {
    syncing_ = true;
    if (revision_ != data_.Revision()) {
        revision_ = data_.Revision();
        ListView_SetItemCountEx(window_, static_cast<int>(data_.Items().size()), LVSICF_NOSCROLL);
        InvalidateRect(window_, nullptr, FALSE);
        selected_ = SelectedRow();
    }
    SyncColumns(); // a scroll bar may have come or gone
    if (!tip_shown_ && !data_.ToolTipText.empty()) {
        tip_shown_ = true; // it is about the headers; over the rows it would hide them
        SetControlTip(tips_, ListView_GetHeader(window_), data_.ToolTipText);
    }
    const int top = ListView_GetTopIndex(window_); // Wine brings a row into view when it is selected
    if (selected_ != data_.Selected()) {
        selected_ = data_.Selected();
        ListView_SetItemState(window_, -1, 0, LVIS_SELECTED);
        if (selected_)
            ListView_SetItemState(window_, static_cast<int>(*selected_), LVIS_SELECTED | LVIS_FOCUSED,
                                  LVIS_SELECTED | LVIS_FOCUSED);
    }
    if (marked_ != data_.LastSearchIndex()) {
        marked_ = data_.LastSearchIndex();
        InvalidateRect(window_, nullptr, FALSE);
    }
    SyncArrow();
    if (std::exchange(visible_served_, data_.VisibleRequest()) != data_.VisibleRequest() && selected_)
        BringIntoView(static_cast<int>(*selected_), top);
    syncing_ = false;
}

/// Scrolls a row that was out of view to the middle, so that its neighbours are visible as well.
void FeedList::BringIntoView(int row, int top) const {
    const int page = ListView_GetCountPerPage(window_);
    ListView_EnsureVisible(window_, row, FALSE);
    if (row >= top && row < top + page) return;
    ListView_EnsureVisible(window_, std::max(0, row - page / 2), FALSE);
    ListView_EnsureVisible(window_, std::min(row + page / 2, ListView_GetItemCount(window_) - 1), FALSE);
}

/// All columns of a row in one line, for screen readers.
std::string FeedList::LineOf(std::size_t row) const {
    std::string line;
    for (int column = 0; row < data_.Items().size() && column < columns_; ++column) {
        const std::string_view text = TextOf(data_.Items()[row], static_cast<Column>(column));
        if (!text.empty()) line.append(line.empty() ? "" : ", ").append(text.substr(0, LongestCell));
    }
    return line;
}

void FeedList::SyncArrow() {
    const int column = data_.Sorted() ? static_cast<int>(data_.SortKey()) + 1 : 0;
    const int arrow = data_.Order() == SortOrder::Descending ? -column : column;
    if (arrow == arrow_) return;
    arrow_ = arrow;
    HWND header = ListView_GetHeader(window_);
    for (int index = 0; index < Header_GetItemCount(header); ++index) {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
        if (index + 1 == column) item.fmt |= arrow > 0 ? HDF_SORTUP : HDF_SORTDOWN;
        SendMessageW(header, HDM_SETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    }
}

std::optional<std::size_t> FeedList::SelectedRow() const {
    const int row = ListView_GetNextItem(window_, -1, LVNI_SELECTED);
    return row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row));
}

POINT FeedList::PlaceOf(std::size_t row) const {
    RECT area{};
    ListView_GetItemRect(window_, static_cast<int>(row), &area, LVIR_LABEL);
    POINT place{area.left, area.bottom};
    ClientToScreen(window_, &place);
    return place;
}

LRESULT FeedList::Notify(NMHDR& header) {
    switch (header.code) {
    case LVN_GETDISPINFOW:
        FillItem(reinterpret_cast<NMLVDISPINFOW&>(header).item);
        return 0;
    case LVN_ODFINDITEMW:
        return FindByIcao(reinterpret_cast<NMLVFINDITEMW&>(header));
    case NM_CUSTOMDRAW:
        return Draw(reinterpret_cast<NMLVCUSTOMDRAW&>(header));
    default:
        return 0;
    }
}

void FeedList::FillItem(LVITEMW& item) {
    const auto row = static_cast<std::size_t>(item.iItem);
    if ((item.mask & LVIF_TEXT) == 0 || item.iItem < 0 || row >= data_.Items().size()) return;
    const std::string_view text = TextOf(data_.Items()[row], static_cast<Column>(item.iSubItem));
    cell_ = Wide(text.substr(0, LongestCell));
    item.pszText = cell_.data();
}

LRESULT FeedList::FindByIcao(const NMLVFINDITEMW& find) const {
    const auto& items = data_.Items();
    if ((find.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || items.empty()) return -1;
    const std::string wanted = LCase(Narrow(find.lvfi.psz));
    const auto start = static_cast<std::size_t>(find.iStart < 0 ? 0 : find.iStart);
    for (std::size_t step = 0; step < items.size(); ++step) {
        const std::size_t row = (start + step) % items.size();
        if (LCase(items[row].ICAO).rfind(wanted, 0) == 0) return static_cast<LRESULT>(row);
    }
    return -1;
}

void FeedList::DrawHowToFill(HDC context) const {
    RECT header{};
    GetWindowRect(ListView_GetHeader(window_), &header);
    RECT area{};
    GetClientRect(window_, &area);
    area.top += header.bottom - header.top + theme_->Px(24);
    InflateRect(&area, -theme_->Px(16), 0);
    SelectObject(context, theme_->Text());
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    DrawTextW(context, HowToFill, -1, &area, DT_CENTER | DT_WORDBREAK | DT_NOPREFIX);
}

LRESULT FeedList::Draw(NMLVCUSTOMDRAW& draw) const {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT)
        return CDRF_NOTIFYITEMDRAW | (data_.Items().empty() ? CDRF_NOTIFYPOSTPAINT : 0);
    if (draw.nmcd.dwDrawStage == CDDS_POSTPAINT) DrawHowToFill(draw.nmcd.hdc);
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
    const auto row = static_cast<std::size_t>(draw.nmcd.dwItemSpec);
    if (row == selected_ && GetFocus() != window_) {
        // Keeps the selected row visible: the system's colour without focus hardly differs from the background.
        draw.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
        draw.clrText = GetSysColor(COLOR_WINDOWTEXT);
        draw.clrTextBk = Blend(GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_WINDOW));
    }
    if (static_cast<int>(row) + 1 != data_.LastSearchIndex()) return CDRF_DODEFAULT;
    SelectObject(draw.nmcd.hdc, theme_->Bold());
    return CDRF_NEWFONT;
}

} // namespace quillon
