#pragma once

#include "OffsetMemory.h"

#include <string>
#include <vector>

namespace practice {

struct Options {
    std::string window_class = "UIPCMAIN";
    bool minimised = false;
};

/// Takes the command line's words (without the program's name): "--" and a field's name, then its value;
/// "--paused",
/// "--minimised", "--class NAME". Returns what is wrong with them, an empty text if nothing is.
std::string ReadOptions(const std::vector<std::string>& words, Options& options, OffsetMemory& memory);

} // namespace practice
