#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// The lines of the airport file, in its order, indexed by the text before their first commas.
class AirportList {
  public:
    AirportList(std::vector<std::string> lines = {});

    const std::vector<std::string>& Lines() const { return lines_; }

    /// Index of the first line at or after `start` whose text before its first comma is `icao`, in the same
    /// case. Lines without a comma are skipped.
    std::optional<std::size_t> Find(std::string_view icao, std::size_t start) const;

  private:
    std::string_view IcaoOf(std::uint32_t line) const;

    std::vector<std::string> lines_;
    std::vector<std::uint32_t> by_icao_; // lines with a comma, sorted; equals in the file's order
};

} // namespace quillon
