#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace practice {

using Words = std::vector<std::string>;

/// Why a command failed; the answer is "error: " and this text.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A command. `run` takes the words after its name, between `least` and `most` of them, and returns the answer;
/// it raises Failure.
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
extern const std::vector<Command> SystemCommands;  ///< locked files, objects in use, what is read out

/// Runs one line and returns its answer.
std::string Execute(const std::string& line);

/// A decimal number, or a hexadecimal one after "0x". Raises Failure.
unsigned NumberArgument(const std::string& text);

/// The words from `first` on, joined with single spaces.
std::string Rest(const Words& words, std::size_t first);

} // namespace practice
