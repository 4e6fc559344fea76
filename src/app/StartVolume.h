#pragma once

#include <optional>
#include <string>

namespace quillon {

/// The start volume that a command line asks for, 0 to 101; nothing when it is no number above 0 and below 101.
std::optional<int> StartVolume(const std::string& command_line);

} // namespace quillon
