#pragma once

#include <optional>
#include <string>

namespace quillon {

/// The start volume, 0 to 100, on a command line; empty unless its number is above 0 and below 101.
std::optional<int> StartVolume(const std::string& command_line);

} // namespace quillon
