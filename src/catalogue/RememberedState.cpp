#include "catalogue/RememberedState.h"

#include "ports/TextFile.h"
#include "runtime/Files.h"
#include "runtime/RuntimeError.h"
#include "runtime/Trim.h"

#include <charconv>

namespace quillon {

namespace {

/// Takes a whole number from `least` to `most`; anything else leaves the value as it is.
void TakeNumber(std::string_view text, int least, int most, int& value) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || number < least || number > most) return;
    value = number;
}

struct Key {
    std::string_view Name;
    void (*Take)(std::string_view text, RememberedValues& values);
    std::string (*Text)(const RememberedValues& values);
};

constexpr Key Keys[] = {
    {"volume", [](std::string_view text, RememberedValues& values) { TakeNumber(text, 0, 100, values.Volume); },
     [](const RememberedValues& values) { return std::to_string(values.Volume); }},
    {"user-agent", [](std::string_view text, RememberedValues& values) { values.UserAgent = text; },
     [](const RememberedValues& values) { return values.UserAgent; }},
};

} // namespace

RememberedValues ParseRemembered(std::string_view bytes) {
    RememberedValues values;
    std::string_view rest = SkipByteOrderMark(bytes);
    while (const auto line = TakeLine(rest)) {
        const std::size_t equals = line->find('=');
        if (equals == line->npos) continue;
        for (const Key& key : Keys)
            if (key.Name == Trimmed(line->substr(0, equals)))
                key.Take(Trimmed(line->substr(equals + 1)), values);
    }
    return values;
}

std::string RememberedText(const RememberedValues& values) {
    std::string text;
    for (const Key& key : Keys) text.append(key.Name).append("=").append(key.Text(values)).append("\r\n");
    return text;
}

void RememberedState::Read() {
    std::string bytes;
    try {
        bytes = ReadFile(Path());
        may_write_ = true;
    } catch (const RuntimeError& error) {
        // What cannot be read must not be lost, either.
        may_write_ = error.Number == FileNotFound;
    }
    RememberedValues values = ParseRemembered(bytes);
    state_.form.Volume = values.Volume;
    state_.UserAgent = std::move(values.UserAgent);
}

void RememberedState::Write() {
    if (!may_write_) return;
    try {
        ReplaceFile(Path(), RememberedText({state_.form.Volume, state_.UserAgent}));
    } catch (const RuntimeError&) {
        // Then the next run starts from what the file held before.
    }
}

} // namespace quillon
