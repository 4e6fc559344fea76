#include "state/ListView.h"

#include "runtime/Text.h"

#include <algorithm>
#include <utility>

namespace quillon {

const std::string& TextOf(const FeedRecord& record, Column column) {
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
    selected_.reset();
    marked_.reset();
    ++revision_;
}

bool ListView::Before(const FeedRecord& left, const FeedRecord& right) const {
    const std::string a = LCase(TextOf(left, sort_key_));
    const std::string b = LCase(TextOf(right, sort_key_));
    return order_ == SortOrder::Ascending ? a < b : b < a;
}

void ListView::Add(FeedRecord record) {
    ++revision_;
    if (!sorted_) {
        items_.push_back(std::move(record));
        return;
    }
    const auto before = [this](const FeedRecord& a, const FeedRecord& b) { return Before(a, b); };
    const auto place = std::upper_bound(items_.begin(), items_.end(), record, before);
    const auto row = static_cast<std::size_t>(place - items_.begin());
    items_.insert(place, std::move(record));
    for (auto* kept : {&selected_, &marked_})
        if (*kept && **kept >= row) ++**kept;
}

void ListView::Select(std::optional<std::size_t> row) {
    if (!row || *row < items_.size()) selected_ = row;
}

void ListView::SetSortKey(Column column) {
    sort_key_ = column;
    if (sorted_) Sort();
}

void ListView::SetSortOrder(SortOrder order) {
    order_ = order;
    if (sorted_) Sort();
}

void ListView::SetSorted(bool sorted) {
    sorted_ = sorted;
    if (sorted_) Sort();
}

void ListView::Sort() {
    ++revision_;
    // All keys lie in one text, which is what makes comparing them quick.
    struct Key {
        std::size_t start, length, row;
    };
    std::string texts;
    std::vector<Key> keys;
    keys.reserve(items_.size());
    for (const FeedRecord& item : items_) {
        const std::string text = LCase(TextOf(item, sort_key_));
        keys.push_back({texts.size(), text.size(), keys.size()});
        texts += text;
    }
    const auto text_of = [&texts](const Key& key) {
        return std::string_view(texts).substr(key.start, key.length);
    };
    const bool ascending = order_ == SortOrder::Ascending;
    std::stable_sort(keys.begin(), keys.end(), [&](const Key& a, const Key& b) {
        return ascending ? text_of(a) < text_of(b) : text_of(b) < text_of(a);
    });

    std::vector<FeedRecord> sorted;
    sorted.reserve(items_.size());
    for (const Key& key : keys) sorted.push_back(std::move(items_[key.row]));
    items_ = std::move(sorted);
    for (auto* kept : {&selected_, &marked_})
        if (*kept)
            *kept = static_cast<std::size_t>(
                std::find_if(keys.begin(), keys.end(), [&](const Key& key) { return key.row == **kept; }) -
                keys.begin());
}

} // namespace quillon
