#include "catalogue/FeedIndex.h"

#include "radio/Channel.h"

namespace quillon {

std::span<const std::uint32_t> FeedIndex::OfChannel(std::string_view frequency) {
    Update();
    const auto found = by_channel_.find(FrequencyKey(frequency));
    return found == by_channel_.end() ? std::span<const std::uint32_t>() : found->second;
}

const std::unordered_map<std::string_view, FeedIndex::Rows>& FeedIndex::ByAirport() {
    Update();
    return by_airport_;
}

void FeedIndex::Update() {
    if (revision_ == list_.Revision()) return;
    revision_ = list_.Revision();
    by_channel_.clear();
    by_airport_.clear();
    const std::vector<FeedRecord>& items = list_.Items();
    for (std::uint32_t row = 0; row < items.size(); ++row) {
        by_channel_[FrequencyKey(items[row].Freq)].push_back(row);
        by_airport_[items[row].ICAO].push_back(row);
    }
}

} // namespace quillon
