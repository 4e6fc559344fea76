#pragma once

#include "OffsetMemory.h"

#include <string>
#include <vector>

namespace practice {

struct Options {
    std::string window_class = "UIPCMAIN";
    bool minimised = false;
};

/// Parses the command line's words, without the program's name: "--" and a field's name, then its value;
/// "--paused", "--minimised", "--class NAME". Returns an error message, or an empty text.
std::string ReadOptions(const std::vector<std::string>& words, Options& options, OffsetMemory& memory);

} // namespace practice
