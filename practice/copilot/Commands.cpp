#include "Commands.h"

#include "../Units.h"

#include <algorithm>
#include <sstream>

namespace practice {

namespace {

const Command* FindCommand(const std::string& name) {
    for (const auto* commands :
         {&LinkCommands, &WindowCommands, &ContentCommands, &PlayerCommands, &SystemCommands})
        for (const Command& command : *commands)
            if (name == command.name) return &command;
    return nullptr;
}

/// Escapes line ends, as an answer is always one line.
std::string OneLine(const std::string& text) {
    std::string line;
    for (const char c : text) {
        if (c == '\r')
            line += "\\r";
        else if (c == '\n')
            line += "\\n";
        else
            line += c;
    }
    return line;
}

std::string Run(Words words) {
    if (words.empty()) throw Failure("no command");
    const std::string name = words.front();
    words.erase(words.begin());
    const Command* command = FindCommand(name);
    if (!command) throw Failure("unknown command " + name);
    if (words.size() < command->least || words.size() > command->most)
        throw Failure(name + " takes " + std::to_string(command->least) + " to " +
                      std::to_string(command->most) + " words");
    return command->run(words);
}

} // namespace

std::string Execute(const std::string& line) {
    std::istringstream stream(line);
    Words words;
    for (std::string word; stream >> word;) words.push_back(word);
    try {
        return OneLine(Run(words));
    } catch (const Failure& failure) {
        return OneLine(std::string("error: ") + failure.what());
    }
}

unsigned NumberArgument(const std::string& text) {
    const auto number = NumberOf(text);
    if (!number) throw Failure(text + " is not a number");
    return *number;
}

std::string Rest(const Words& words, std::size_t first) {
    std::string text;
    for (std::size_t i = first; i < words.size(); ++i) text += (i == first ? "" : " ") + words[i];
    return text;
}

} // namespace practice
