#include "Options.h"

#include "Fields.h"

#include <algorithm>

namespace practice {

std::string ReadOptions(const std::vector<std::string>& words, Options& options, OffsetMemory& memory) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (word == "--minimised") {
            options.minimised = true;
            continue;
        }
        if (word == "--paused") {
            Fields[Paused].set(memory, "1");
            continue;
        }
        if (i + 1 == words.size()) return word + " needs a value";
        const std::string& value = words[++i];
        if (word == "--class") {
            options.window_class = value;
            continue;
        }
        const auto field = std::find_if(Fields.begin(), Fields.end(), [&](const Field& known) {
            return word.starts_with("--") && word.substr(2) == known.name;
        });
        if (field == Fields.end()) return word + " is not an option";
        if (!field->set(memory, value)) return std::string(value).append(" is not a value for ").append(word);
    }
    return {};
}

} // namespace practice
