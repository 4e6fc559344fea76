#include "state/ListView.h"

#include "runtime/Text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace quillon {

namespace {

/// A row with the start of its text in lower case, which decides most comparisons without touching the text.
struct Entry {
    std::array<char, 24> start{};
    std::size_t row;

    Entry(std::string_view text, std::size_t row_number) : row(row_number) {
        const std::string lower =
            LCase(text.substr(0, start.size() + 1)); // one byte more, so that no two-byte letter is cut
        std::copy_n(lower.begin(), std::min(lower.size(), start.size()), start.begin());
    }
};

} // namespace

std::string_view TextOf(const FeedRecord& record, Column column) {
    switch (column) {
    case Column::ICAO:
        return record.ICAO;
    case Column::City:
        return record.City;
    case Column::Freq:
        return record.Freq;
    case Column::URL:
        break;
    }
    return record.URL;
}

void ListView::Clear() {
    items_.clear();
    texts_.reset();
    selected_.reset();
    marked_.reset();
    ++revision_;
}

/// Negative if the left row comes first, 0 if they are equal.
int ListView::Compare(const FeedRecord& left, const FeedRecord& right) const {
    const int compared = CompareLCase(TextOf(left, sort_key_), TextOf(right, sort_key_));
    return order_ == SortOrder::Ascending ? compared : -compared;
}

void ListView::Reserve(std::size_t rows, std::shared_ptr<const std::string> texts) {
    items_.reserve(rows);
    texts_ = std::move(texts);
}

void ListView::Add(const FeedRecord& record) {
    ++revision_;
    if (!sorted_) {
        items_.push_back(record);
        return;
    }
    const auto before = [this](const FeedRecord& a, const FeedRecord& b) { return Compare(a, b) < 0; };
    const auto place = std::upper_bound(items_.begin(), items_.end(), record, before);
    const auto row = static_cast<std::size_t>(place - items_.begin());
    items_.insert(place, record);
    for (auto* kept : {&selected_, &marked_})
        if (*kept && **kept >= row) ++**kept;
}

void ListView::Select(std::optional<std::size_t> row) {
    if (!row || *row < items_.size()) selected_ = row;
}

void ListView::SortBy(Column column, SortOrder order) {
    sort_key_ = column;
    order_ = order;
    SetSorted(true);
}

void ListView::SetSorted(bool sorted) {
    sorted_ = sorted;
    if (sorted_) Sort();
}

void ListView::Sort() {
    ++revision_;
    std::vector<Entry> entries;
    entries.reserve(items_.size());
    for (const FeedRecord& item : items_) entries.emplace_back(TextOf(item, sort_key_), entries.size());
    std::stable_sort(entries.begin(), entries.end(), [this](const Entry& a, const Entry& b) {
        const int started = std::memcmp(a.start.data(), b.start.data(), a.start.size());
        if (started != 0) return (started < 0) == (order_ == SortOrder::Ascending);
        return Compare(items_[a.row], items_[b.row]) < 0;
    });

    std::vector<FeedRecord> sorted;
    sorted.reserve(items_.size());
    for (const Entry& entry : entries) sorted.push_back(items_[entry.row]);
    items_ = std::move(sorted);
    for (auto* kept : {&selected_, &marked_})
        if (*kept)
            *kept = static_cast<std::size_t>(
                std::find_if(entries.begin(), entries.end(), [&](const Entry& e) { return e.row == **kept; }) -
                entries.begin());
}

} // namespace quillon
