#pragma once

#include "state/ViewRequest.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// One source of radio sound: a line of the catalogue and a row of the list, which keeps its texts until it is
/// cleared.
struct FeedRecord {
    std::string_view ICAO; ///< airport code, looked up in the airport file
    std::string_view City; ///< free description
    std::string_view Freq; ///< six characters "###.##", or seven "###.###", MHz
    std::string_view URL;  ///< stream address, playlist, or folder of recordings
};

enum class Column { ICAO = 0, City = 1, Freq = 2, URL = 3 };
enum class SortOrder { Ascending, Descending };

/// The text of one of the record's columns.
std::string_view TextOf(const FeedRecord& record, Column column);

/// A list view as data: rows, selection and sorting. Rows are numbered from 0.
class ListView {
  public:
    struct ColumnHeader {
        std::string Text;
        int WidthTwips;
    };

    std::vector<ColumnHeader> ColumnHeaders;
    std::string ToolTipText;

    const std::vector<FeedRecord>& Items() const { return items_; }
    std::optional<std::size_t> Selected() const { return selected_; }
    bool Sorted() const { return sorted_; }
    Column SortKey() const { return sort_key_; }
    SortOrder Order() const { return order_; }

    /// Changes whenever the rows do, so that the window can tell whether to redraw the list.
    std::uint64_t Revision() const { return revision_; }

    /// To scroll the selected row into view.
    ViewRequest VisibleRequest() const { return visible_request_; }

    void Clear();

    /// Makes room for that many rows, and keeps the text that their fields refer to.
    void Reserve(std::size_t rows, std::shared_ptr<const std::string> texts);

    /// Adds a row whose fields refer to the kept text or to static text: at its sorted place (after its equals)
    /// while sorting is on, else at the end.
    void Add(const FeedRecord& record);

    /// Selects one row, or none. Rows that do not exist are ignored.
    void Select(std::optional<std::size_t> row);

    /// Asks for the selected row to be scrolled into view.
    void EnsureSelectedVisible() { ++visible_request_; }

    /// 1-based row of the last search's hit, shown in bold; 0 if there is none.
    int LastSearchIndex() const { return marked_ ? static_cast<int>(*marked_) + 1 : 0; }
    void MarkSearchHit(std::size_t row) { marked_ = row; }
    void ClearLastSearch() { marked_.reset(); }

    /// Sorts and switches sorting on. Sorting ignores case and keeps the order of equals; selection and mark
    /// move with their rows.
    void SortBy(Column column, SortOrder order);

    /// Switches sorting on, by the last column and order, or off, which leaves the rows where they are.
    void SetSorted(bool sorted);

  private:
    int Compare(const FeedRecord& left, const FeedRecord& right) const;
    void Sort();

    std::vector<FeedRecord> items_;
    std::shared_ptr<const std::string> texts_; ///< what the rows' fields refer to
    std::optional<std::size_t> selected_;
    std::optional<std::size_t> marked_;
    bool sorted_ = false;
    Column sort_key_ = Column::ICAO;
    SortOrder order_ = SortOrder::Ascending;
    std::uint64_t revision_ = 0;
    ViewRequest visible_request_ = 0;
};

} // namespace quillon
