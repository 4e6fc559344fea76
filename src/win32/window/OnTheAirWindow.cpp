#include "win32/window/OnTheAirWindow.h"

#include "win32/system/Utf16.h"
#include "win32/window/Controls.h"
#include "win32/window/DialogIds.h"
#include "win32/window/Dialogs.h"
#include "win32/window/Layout.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <utility>

namespace quillon {

namespace {

constexpr UINT RenewMs = 2000;
constexpr std::size_t LongestCell = 1024; // characters of a catalogue's line that anyone reads in a column
constexpr int LeastForPicture = 760;      // width of the window at 96 dpi

struct ShownColumn {
    const wchar_t* title;
    int width; // dialog units
};
constexpr ShownColumn Columns[] = {{L"Distance", 44}, {L"Bearing", 40},   {L"Airport", 40},
                                   {L"City", 0},      {L"Frequency", 50}, {L"Radio", 40}};
constexpr int CityColumn = 3; // takes the room that the others leave

std::string CellOf(const OnTheAirForm::Row& row, int column) {
    constexpr const char* Marks[] = {"", "Tuned", "Playing"};
    char bearing[8];
    switch (column) {
    case 0:
        return std::to_string(row.NauticalMiles) + " NM";
    case 1:
        std::snprintf(bearing, sizeof bearing, "%03ld", std::lround(row.Where.Bearing) % 360);
        return bearing;
    case 2:
        return row.What.Icao;
    case CityColumn:
        return row.What.City;
    case 4:
        return row.What.Frequency;
    default:
        return Marks[static_cast<int>(row.Now)];
    }
}

} // namespace

OnTheAirWindow::OnTheAirWindow(std::function<void()> sync)
    : sync_(std::move(sync)), picture_([this](std::size_t row) { SelectFromPicture(row); }) {}

void OnTheAirWindow::Sync(HWND owner, Program& program) {
    program_ = &program;
    if (!Form().Visible) return CloseWindow();
    if (Window() == nullptr) Open(owner);
    if (Window() != nullptr) Show();
}

void OnTheAirWindow::Open(HWND owner) {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&classes);
    AirPicture::Register();
    OpenWindow(IDD_ON_THE_AIR, owner);
    if (Window() == nullptr) return;
    picture_.Attach(Item(IDC_AIR_PICTURE), Form());
    revision_ = 0;
    for (const WPARAM size : {WPARAM{ICON_SMALL}, WPARAM{ICON_BIG}})
        SendMessageW(Window(), WM_SETICON, size, static_cast<LPARAM>(GetClassLongPtrW(owner, GCLP_HICON)));
    AddColumns();
    Layout();
    SetTimer(Window(), 1, RenewMs, nullptr);
    ShowWindow(Window(), SW_SHOW);
}

void OnTheAirWindow::AddColumns() {
    HWND list = Item(IDC_AIR_LIST);
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
    int index = 0;
    for (const ShownColumn& wanted : Columns) {
        std::wstring title = wanted.title;
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT;
        column.pszText = title.data();
        ListView_InsertColumn(list, index++, &column);
    }
}

void OnTheAirWindow::Show() {
    ShowText(IDC_AIR_STATE, Form().StateCaption);
    ShowText(IDC_AIR_LABEL, Form().ListCaption);
    syncing_ = true;
    ShowRows();
    ShowSelection();
    syncing_ = false;
    if (std::exchange(activation_served_, Form().ActivationRequest) != Form().ActivationRequest)
        SetActiveWindow(Window());
}

void OnTheAirWindow::ShowText(int id, const std::string& text) {
    if (TextOfItem(Window(), id) != text) SetDlgItemTextW(Window(), id, Wide(text).c_str());
}

void OnTheAirWindow::ShowRows() {
    if (revision_ == Form().Revision) return;
    revision_ = Form().Revision;
    HWND list = Item(IDC_AIR_LIST);
    const int count = static_cast<int>(Form().Rows.size());
    if (ListView_GetItemCount(list) != count)
        ListView_SetItemCountEx(list, count, LVSICF_NOSCROLL | LVSICF_NOINVALIDATEALL);
    InvalidateRect(list, nullptr, FALSE);
    InvalidateRect(Item(IDC_AIR_PICTURE), nullptr, FALSE);
}

/// A row that was in view when its feed moved stays in view.
void OnTheAirWindow::ShowSelection() {
    const auto wanted = Form().Selected;
    const auto shown = SelectedRow();
    if (shown == wanted) return;
    HWND list = Item(IDC_AIR_LIST);
    const int top = ListView_GetTopIndex(list);
    const int row = shown ? static_cast<int>(*shown) : top;
    const bool in_view = row >= top && row < top + ListView_GetCountPerPage(list);
    constexpr UINT State = LVIS_SELECTED | LVIS_FOCUSED;
    ListView_SetItemState(list, -1, 0, LVIS_SELECTED);
    if (wanted) ListView_SetItemState(list, static_cast<int>(*wanted), State, State);
    if (wanted && in_view) ListView_EnsureVisible(list, static_cast<int>(*wanted), FALSE);
    InvalidateRect(Item(IDC_AIR_PICTURE), nullptr, FALSE);
}

std::optional<std::size_t> OnTheAirWindow::SelectedRow() const {
    const int row = ListView_GetNextItem(Item(IDC_AIR_LIST), -1, LVNI_SELECTED);
    return row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row));
}

INT_PTR OnTheAirWindow::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
    case WM_INITDIALOG:
        PrepareDialog(Window());
        SendMessageW(Window(), DM_REPOSITION, 0, 0); // back onto the screen: it may be wider than its owner
        return TRUE;
    case WM_TIMER:
        program_->PollOnTheAir();
        sync_();
        return TRUE;
    case WM_SYSCOLORCHANGE:
        ForwardSystemColors(Window());
        return TRUE;
    case WM_SIZE:
        Layout();
        return TRUE;
    case WM_GETMINMAXINFO: {
        RECT least{0, 0, 200, 110}; // dialog units
        MapDialogRect(Window(), &least);
        reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {least.right, least.bottom};
        return TRUE;
    }
    case WM_CLOSE:
        program_->CloseOnTheAir();
        sync_();
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wparam) == IDCANCEL) SendMessageW(Window(), WM_CLOSE, 0, 0);
        if (LOWORD(wparam) == IDOK && GetFocus() == Item(IDC_AIR_LIST)) PickSelected();
        return TRUE;
    case WM_NOTIFY:
        return Notify(*reinterpret_cast<NMHDR*>(lparam));
    default:
        return FALSE;
    }
}

INT_PTR OnTheAirWindow::Notify(NMHDR& header) {
    if (header.idFrom != IDC_AIR_LIST) return FALSE;
    if (header.code == LVN_GETDISPINFOW) FillItem(reinterpret_cast<NMLVDISPINFOW&>(header).item);
    if (header.code == LVN_ITEMCHANGED && !syncing_) SelectFromList();
    if (header.code == NM_DBLCLK) PickSelected();
    return TRUE;
}

void OnTheAirWindow::SelectFromList() {
    const auto row = SelectedRow();
    if (row == Form().Selected || (row && *row >= Form().Rows.size())) return;
    program_->SelectOnTheAir(row ? std::optional(Form().Rows[*row].What) : std::nullopt);
    InvalidateRect(Item(IDC_AIR_PICTURE), nullptr, FALSE);
    sync_();
}

void OnTheAirWindow::SelectFromPicture(std::size_t row) {
    if (row >= Form().Rows.size()) return;
    program_->SelectOnTheAir(Form().Rows[row].What);
    sync_();
    ListView_EnsureVisible(Item(IDC_AIR_LIST), static_cast<int>(row), FALSE);
    SetFocus(Item(IDC_AIR_LIST));
}

void OnTheAirWindow::PickSelected() {
    const auto row = SelectedRow();
    if (!row || *row >= Form().Rows.size()) return;
    program_->PickOnTheAir(Form().Rows[*row].What);
    sync_();
}

void OnTheAirWindow::FillItem(LVITEMW& item) {
    const auto& rows = Form().Rows;
    const auto row = static_cast<std::size_t>(item.iItem);
    if ((item.mask & LVIF_TEXT) == 0 || item.iItem < 0 || row >= rows.size()) return;
    cell_ = Wide(CellOf(rows[row], item.iSubItem).substr(0, LongestCell));
    item.pszText = cell_.data();
}

void OnTheAirWindow::Layout() {
    constexpr int Edge = 12;
    constexpr int Head = 48; // what stands above the list, and its edge below
    const Theme theme(GetDpiForWindow(Window()));
    RECT client{};
    GetClientRect(Window(), &client);
    const bool wide = client.right >= theme.Px(LeastForPicture);
    ShowWindow(Item(IDC_AIR_PICTURE), wide ? SW_SHOWNA : SW_HIDE);
    const int most = MulDiv(std::min(client.bottom - theme.Px(Head), client.right * 2 / 5), 96,
                            static_cast<int>(theme.Dpi()));
    const auto across = [&](int id) { return std::vector<Cell>{Edge, {Item(id), Grows}, Edge}; };
    std::vector<Cell> both{Edge, {Item(IDC_AIR_LIST), Grows}, Edge};
    if (wide) both.insert(both.end(), {{Item(IDC_AIR_PICTURE), most}, Edge});
    const std::vector<Row> rows{
        10, {15, across(IDC_AIR_STATE)}, 3, {15, across(IDC_AIR_LABEL)}, 3, {both, Grows}, Edge};
    PlaceRows(theme, rows, {client.right, client.bottom});
    FitColumns();
    RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void OnTheAirWindow::FitColumns() {
    HWND list = Item(IDC_AIR_LIST);
    RECT client{};
    GetClientRect(list, &client);
    int room = client.right;
    for (int column = 0; column < static_cast<int>(std::size(Columns)); ++column) {
        if (column == CityColumn) continue;
        RECT width{0, 0, Columns[column].width, 0};
        MapDialogRect(Window(), &width);
        ListView_SetColumnWidth(list, column, width.right);
        room -= width.right;
    }
    ListView_SetColumnWidth(list, CityColumn, std::max(room, static_cast<int>(client.right) / 5));
}

} // namespace quillon
