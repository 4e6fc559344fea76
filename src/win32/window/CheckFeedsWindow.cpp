#include "win32/window/CheckFeedsWindow.h"

#include "win32/system/Utf16.h"
#include "win32/window/Controls.h"
#include "win32/window/DialogIds.h"
#include "win32/window/Dialogs.h"
#include "win32/window/Layout.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillon {

namespace {

constexpr UINT PollMs = 100;
constexpr std::size_t LongestCell = 1024; // characters of a catalogue's line that anyone reads in a column

struct ShownColumn {
    const wchar_t* title;
    int width; // dialog units
};
constexpr ShownColumn Columns[] = {{L"Line", 30}, {L"Feed", 122}, {L"Address", 126}, {L"Result", 140}};

std::string CellOf(const CheckFeedsForm::Row& row, int column) {
    switch (column) {
    case 0:
        return std::to_string(row.Line);
    case 1:
        return row.Feed;
    case 2:
        return row.Address;
    default:
        return row.Result;
    }
}

/// Converts dialog units to pixels.
RECT Pixels(HWND dialog, RECT units) {
    MapDialogRect(dialog, &units);
    return units;
}

} // namespace

void CheckFeedsWindow::Sync(HWND owner, Program& program) {
    program_ = &program;
    const CheckFeedsForm& form = program.State().check_feeds;
    if (!form.Visible) return CloseWindow();
    if (Window() == nullptr) Open(owner);
    if (Window() != nullptr) Show();
}

void CheckFeedsWindow::Open(HWND owner) {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_PROGRESS_CLASS | ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&classes);
    OpenWindow(IDD_CHECK_FEEDS, owner);
    if (Window() == nullptr) return;
    revision_ = 0;
    for (const WPARAM size : {WPARAM{ICON_SMALL}, WPARAM{ICON_BIG}})
        SendMessageW(Window(), WM_SETICON, size, static_cast<LPARAM>(GetClassLongPtrW(owner, GCLP_HICON)));
    AddColumns();
    CheckDlgButton(Window(), IDC_CHECK_FAULTS,
                   program_->State().check_feeds.FaultsOnly ? BST_CHECKED : BST_UNCHECKED);
    Layout();
    SetTimer(Window(), 1, PollMs, nullptr);
    ShowWindow(Window(), SW_SHOW);
}

void CheckFeedsWindow::AddColumns() {
    HWND list = Item(IDC_CHECK_LIST);
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP |
                                                LVS_EX_INFOTIP);
    int index = 0;
    for (const ShownColumn& wanted : Columns) {
        std::wstring title = wanted.title;
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = title.data();
        column.cx = Pixels(Window(), {0, 0, wanted.width, 0}).right;
        ListView_InsertColumn(list, index++, &column);
    }
}

void CheckFeedsWindow::Show() {
    const CheckFeedsForm& form = program_->State().check_feeds;
    if (TextOfItem(Window(), IDC_CHECK_STATE) != form.LabelCaption)
        SetDlgItemTextW(Window(), IDC_CHECK_STATE, Wide(form.LabelCaption).c_str());
    const std::string button = form.Running ? "Cancel" : "Close";
    if (TextOfItem(Window(), IDCANCEL) != button) SetDlgItemTextW(Window(), IDCANCEL, Wide(button).c_str());
    ShowRows();
    if (std::exchange(activation_served_, form.ActivationRequest) != form.ActivationRequest)
        SetActiveWindow(Window());
}

void CheckFeedsWindow::ShowRows() {
    const CheckFeedsForm& form = program_->State().check_feeds;
    if (revision_ == form.Revision) return;
    revision_ = form.Revision;
    SendMessageW(Item(IDC_CHECK_BAR), PBM_SETRANGE32, 0, static_cast<LPARAM>(form.Total));
    SendMessageW(Item(IDC_CHECK_BAR), PBM_SETPOS, form.Done, 0);
    HWND list = Item(IDC_CHECK_LIST);
    ListView_SetItemCountEx(list, static_cast<int>(form.Rows.size()), LVSICF_NOSCROLL);
    if (!form.Running) { // the rows have been sorted
        ListView_SetItemState(list, -1, 0, LVIS_SELECTED);
        ListView_EnsureVisible(list, 0, FALSE);
    }
    InvalidateRect(list, nullptr, FALSE);
}

INT_PTR CheckFeedsWindow::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
    case WM_INITDIALOG:
        PrepareDialog(Window());
        SendMessageW(Window(), DM_REPOSITION, 0, 0); // back onto the screen: it may be wider than its owner
        return TRUE;
    case WM_TIMER:
        Event([](FeedCheck& check) { check.Poll(); });
        return TRUE;
    case WM_SYSCOLORCHANGE:
        ForwardSystemColors(Window());
        return TRUE;
    case WM_SIZE:
        Layout();
        return TRUE;
    case WM_GETMINMAXINFO: {
        const RECT least = Pixels(Window(), {0, 0, 220, 140});
        reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {least.right, least.bottom};
        return TRUE;
    }
    case WM_CLOSE:
        Event([](FeedCheck& check) { check.Close(); });
        return TRUE;
    case WM_COMMAND:
        Obey(LOWORD(wparam));
        return TRUE;
    case WM_NOTIFY: {
        const NMHDR& header = *reinterpret_cast<NMHDR*>(lparam);
        if (header.idFrom != IDC_CHECK_LIST) return FALSE;
        if (header.code == LVN_GETDISPINFOW) FillItem(reinterpret_cast<NMLVDISPINFOW*>(lparam)->item);
        if (header.code == NM_DBLCLK) FindSelected();
        return TRUE;
    }
    default:
        return FALSE;
    }
}

void CheckFeedsWindow::Obey(int control) {
    const bool faults_only = IsDlgButtonChecked(Window(), IDC_CHECK_FAULTS) == BST_CHECKED;
    if (control == IDC_CHECK_FAULTS) Event([=](FeedCheck& check) { check.ShowFaultsOnly(faults_only); });
    if (control == IDC_CHECK_SAVE) Event([](FeedCheck& check) { check.SaveResults(); });
    if (control == IDCANCEL) Event([](FeedCheck& check) { check.Cancel(); });
    if (control == IDOK && GetFocus() == Item(IDC_CHECK_LIST)) FindSelected();
}

void CheckFeedsWindow::Layout() {
    constexpr int Edge = 12;
    RECT client{};
    GetClientRect(Window(), &client);
    const auto across = [&](int id) { return std::vector<Cell>{Edge, {Item(id), Grows}, Edge}; };
    const std::vector<Cell> buttons{Edge,
                                    Fitted(Item(IDC_CHECK_FAULTS), CheckMark),
                                    {nullptr, Grows},
                                    {Item(IDC_CHECK_SAVE), 96},
                                    Margin,
                                    {Item(IDCANCEL), 75},
                                    Edge};
    const std::vector<Row> rows{13, {15, across(IDC_CHECK_STATE)},
                                5,  {15, across(IDC_CHECK_BAR)},
                                12, {15, across(IDC_CHECK_LABEL)},
                                3,  {across(IDC_CHECK_LIST), Grows},
                                10, {24, buttons},
                                11};
    PlaceRows(Theme(GetDpiForWindow(Window())), rows, {client.right, client.bottom});
    FitColumns();
    RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

/// Scales the columns to fill the list in the proportions that they have, or that the user gave them. The line
/// numbers keep their width.
void CheckFeedsWindow::FitColumns() {
    constexpr int Last = static_cast<int>(std::size(Columns)) - 1;
    HWND list = Item(IDC_CHECK_LIST);
    RECT client{};
    GetClientRect(list, &client);
    const int numbers = static_cast<int>(Pixels(Window(), {0, 0, Columns[0].width, 0}).right);
    ListView_SetColumnWidth(list, 0, numbers);
    int room = static_cast<int>(client.right) - numbers;
    int parts = 0;
    for (int column = 1; column <= Last; ++column) parts += std::max(1, ListView_GetColumnWidth(list, column));
    for (int column = 1; column <= Last; ++column) {
        const int part = std::max(1, ListView_GetColumnWidth(list, column));
        const int width = std::max(0, MulDiv(room, part, parts));
        ListView_SetColumnWidth(list, column, width);
        room -= width;
        parts -= part;
    }
}

void CheckFeedsWindow::FindSelected() {
    const int row = ListView_GetNextItem(Item(IDC_CHECK_LIST), -1, LVNI_SELECTED);
    if (row >= 0) Event([row](FeedCheck& check) { check.SelectFeed(static_cast<std::size_t>(row)); });
}

void CheckFeedsWindow::FillItem(LVITEMW& item) {
    const auto& rows = program_->State().check_feeds.Rows;
    const auto row = static_cast<std::size_t>(item.iItem);
    if ((item.mask & LVIF_TEXT) == 0 || item.iItem < 0 || row >= rows.size()) return;
    cell_ = Wide(CellOf(rows[row], item.iSubItem).substr(0, LongestCell));
    item.pszText = cell_.data();
}

void CheckFeedsWindow::Event(const std::function<void(FeedCheck&)>& event) {
    program_->CheckFeedsEvent(event);
    sync_();
}

} // namespace quillon
