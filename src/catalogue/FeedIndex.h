#pragma once

#include "state/ListView.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillon {

/// The list's rows by channel and by airport. Follows the list's changes.
class FeedIndex {
  public:
    using Rows = std::vector<std::uint32_t>;

    explicit FeedIndex(const ListView& list) : list_(list) {}

    /// The rows whose frequency names the same channel as that text, in the list's order.
    std::span<const std::uint32_t> OfChannel(std::string_view frequency);

    /// The rows of each airport code, by the code.
    const std::unordered_map<std::string_view, Rows>& ByAirport();

  private:
    void Update();

    const ListView& list_;
    std::uint64_t revision_ = 0;
    std::unordered_map<std::string_view, Rows> by_channel_;
    std::unordered_map<std::string_view, Rows> by_airport_;
};

} // namespace quillon
