#include "state/AirportList.h"

#include <algorithm>
#include <utility>

namespace quillon {

AirportList::AirportList(std::vector<std::string> lines) : lines_(std::move(lines)) {
    by_icao_.reserve(lines_.size());
    for (std::uint32_t line = 0; line < lines_.size(); ++line)
        if (lines_[line].find(',') != std::string::npos) by_icao_.push_back(line);
    std::stable_sort(by_icao_.begin(), by_icao_.end(),
                     [this](std::uint32_t a, std::uint32_t b) { return IcaoOf(a) < IcaoOf(b); });
}

std::string_view AirportList::IcaoOf(std::uint32_t line) const {
    const std::string_view text = lines_[line];
    return text.substr(0, text.find(','));
}

std::optional<std::size_t> AirportList::Find(std::string_view icao, std::size_t start) const {
    const auto found = std::partition_point(by_icao_.begin(), by_icao_.end(), [&](std::uint32_t line) {
        const int order = IcaoOf(line).compare(icao);
        return order < 0 || (order == 0 && line < start);
    });
    if (found == by_icao_.end() || IcaoOf(*found) != icao) return std::nullopt;
    return *found;
}

} // namespace quillon
