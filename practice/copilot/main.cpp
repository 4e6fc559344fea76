// For tests and demonstrations: flies the practice simulator and drives Quillon's windows from outside.
// Reads one command per line and answers each with one line, "error: " and the reason when it fails.
#include "Commands.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>

namespace {

/// Returns false at the end of the input.
bool ReadLine(std::string& line) {
    line.clear();
    for (int c = std::getchar(); c != EOF; c = std::getchar()) {
        if (c == '\n') return true;
        if (c != '\r') line += static_cast<char>(c);
    }
    return !line.empty();
}

} // namespace

int wmain() {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    for (std::string line; ReadLine(line);) {
        std::printf("%s\n", practice::Execute(line).c_str());
        std::fflush(stdout);
    }
    return 0;
}
