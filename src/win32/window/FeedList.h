#pragma once

#include "state/ListView.h"
#include "win32/window/Theme.h"

#include <windows.h>

#include <array>
#include <commctrl.h>
#include <optional>
#include <string>
#include <utility>

namespace quillon {

/// The list of feeds: a virtual list view that asks the data for each row as it draws it.
class FeedList {
  public:
    FeedList(HWND parent, HWND tips, const ListView& data);

    HWND Window() const { return window_; }

    /// Columns, font and widths for a resolution.
    void SetTheme(const Theme& theme);

    /// Brings the columns up to the data and to the list's width, which the last one fills.
    void SyncColumns();

    /// Brings rows, selection and scroll position up to the data.
    void Sync();

    /// The row that the control has selected.
    std::optional<std::size_t> SelectedRow() const;

    /// Where on the screen a row begins, below its text.
    POINT PlaceOf(std::size_t row) const;

    /// Whether a selection message comes from the user's hand rather than from Sync.
    bool UserIsSelecting() const { return !syncing_; }

    /// The column that the user has just made wider or narrower, if that is what the message says, and its
    /// width in twips.
    std::optional<std::pair<Column, int>> ResizedColumn(const NMHDR& header);

    /// The control's notifications that only the list itself understands.
    LRESULT Notify(NMHDR& header);

  private:
    int WidthOf(std::size_t column) const;
    void AddColumn(int index, const std::string& name);
    void SyncArrow();
    void FillItem(LVITEMW& item);
    LRESULT Draw(NMLVCUSTOMDRAW& draw) const;
    LRESULT FindByIcao(const NMLVFINDITEMW& find) const;

    const ListView& data_;
    HWND window_;
    Theme const* theme_ = nullptr;
    int columns_ = 0;
    std::array<int, 4> shown_widths_{}; // pixels
    bool dragging_ = false;             // a column's edge
    bool syncing_ = false;
    std::uint64_t revision_ = 0;
    ViewRequest visible_served_ = 0;
    std::optional<std::size_t> selected_;
    int marked_ = 0;
    int arrow_ = 0; // 1-based column, negative when it points down; 0 is none
    HWND tips_;
    bool tip_shown_ = false;
    std::wstring cell_; // text of the cell being asked for; lives until the next question
};

} // namespace quillon
