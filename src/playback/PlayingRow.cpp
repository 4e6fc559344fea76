#include "playback/PlayingRow.h"

#include "playback/CurrentFeed.h"

#include <algorithm>

namespace quillon {

void PlayingRow::Follow() {
    const std::array<std::string, 4> current{feed_.FeedIcao, feed_.FeedCity, feed_.FeedFrequency,
                                             feed_.FeedUrl};
    if (current == followed_) return;
    followed_ = current;
    Highlight();
}

void PlayingRow::Highlight() {
    const auto& items = list_.Items();
    const auto selected = list_.Selected();
    if (selected && IsCurrent(feed_, items[*selected])) return; // it may have a twin
    const auto row = std::find_if(items.begin(), items.end(),
                                  [this](const FeedRecord& record) { return IsCurrent(feed_, record); });
    if (row == items.end()) {
        list_.Select(std::nullopt);
        return;
    }
    list_.Select(static_cast<std::size_t>(row - items.begin()));
    list_.EnsureSelectedVisible();
}

} // namespace quillon
