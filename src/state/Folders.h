#pragma once

#include <string>

namespace quillon {

/// Folders, each ending in a backslash.
struct Folders {
    std::string AppPath;
    std::string DataPath;
    std::string WavePath;
    std::string Home{};    ///< what belongs to the user is kept here, or in its parent while it is missing
    bool Portable = false; ///< Home is the folder "Data" beside the program
};

} // namespace quillon
