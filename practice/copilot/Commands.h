#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace practice {

using Words = std::vector<std::string>;

/// Why a command failed; the text stands behind "error: ".
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A word of the language. `run` is given the words that follow it, at least `least` and at most `most`, and
/// returns the answer's text.
struct Command {
    const char* name;
    std::size_t least;
    std::size_t most;
    std::string (*run)(const Words& arguments);
};

extern const std::vector<Command> LinkCommands;    ///< the simulator, over its link
extern const std::vector<Command> WindowCommands;  ///< windows, message boxes and keys
extern const std::vector<Command> ContentCommands; ///< what status bar and list show
extern const std::vector<Command> PlayerCommands;  ///< the Windows Media Player control
extern const std::vector<Command> SystemCommands;  ///< files held, objects in use

/// The answer to one line.
std::string Obey(const std::string& line);

/// A decimal number, or a hexadecimal one after "0x". Raises Failure.
unsigned NumberArgument(const std::string& text);

/// The rest of the line from that word on, blanks between its words folded.
std::string Rest(const Words& words, std::size_t first);

} // namespace practice
