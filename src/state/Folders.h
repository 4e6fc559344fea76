#pragma once

#include <string>

namespace quillon {

/// Folders, each ending in a backslash.
struct Folders {
    std::string AppPath;
    std::string DataPath;
    std::string WavePath;
};

} // namespace quillon
