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

    /// Sets the font, and widths for the resolution.
    void SetTheme(const Theme& theme);

    /// Updates the columns from the data; the last one fills the list's width.
    void SyncColumns();

    /// Updates rows, selection and scroll position from the data.
    void Sync();

    /// The control's selected row.
    std::optional<std::size_t> SelectedRow() const;

    /// Screen position of the lower left corner of a row's text.
    POINT PlaceOf(std::size_t row) const;

    /// Whether a selection message was caused by the user rather than by Sync.
    bool UserIsSelecting() const { return !syncing_; }

    /// The column that the user has just resized, and its width in twips; nothing for any other message.
    std::optional<std::pair<Column, int>> ResizedColumn(const NMHDR& header);

    /// Handles the notifications that concern only the list. Returns the message's result.
    LRESULT Notify(NMHDR& header);

  private:
    int WidthOf(std::size_t column) const;
    void AddColumn(int index, const std::string& name);
    void SyncArrow();
    void BringIntoView(int row, int top) const;
    std::string LineOf(std::size_t row) const;
    void DrawHowToFill(HDC context) const;
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
    int arrow_ = 0; // the sorted column from 1, negative if descending; 0: none
    HWND tips_;
    bool tip_shown_ = false;
    std::wstring cell_; // keeps the text of the last requested cell alive
};

} // namespace quillon
