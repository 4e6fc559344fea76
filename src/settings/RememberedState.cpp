#include "settings/RememberedState.h"

#include "ports/TextFile.h"
#include "runtime/Files.h"
#include "runtime/RuntimeError.h"
#include "runtime/Trim.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace quillon {

namespace {

/// Takes a whole number from `least` to `most`; anything else leaves the value alone.
void TakeNumber(std::string_view text, int least, int most, int& value) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || number < least || number > most) return;
    value = number;
}

constexpr int LeastLength = 50; // wide enough to be seen and dragged
constexpr int MostLength = 32767;

/// Takes the lengths, separated by blanks, if all of them are valid.
template <std::size_t Count>
void TakeLengths(std::string_view text, std::array<int, Count>& lengths) {
    std::array<int, Count> taken{};
    for (int& length : taken) {
        const std::size_t end = text.find(' ');
        TakeNumber(text.substr(0, end), LeastLength, MostLength, length);
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
    }
    if (std::find(taken.begin(), taken.end(), 0) == taken.end()) lengths = taken;
}

template <std::size_t Count>
std::string LengthsText(const std::array<int, Count>& lengths) {
    std::string text;
    for (const int length : lengths)
        if (length > 0) text += (text.empty() ? "" : " ") + std::to_string(length);
    return text;
}

void TakeWindow(std::string_view text, RememberedValues& values) {
    std::array<int, 2> size{};
    TakeLengths(text, size);
    values.Window = {size[0], size[1]};
}

/// Nothing: the user has not been asked.
std::optional<bool> AnswerOf(std::string_view text) {
    return text == "yes" || text == "no" ? std::optional(text == "yes") : std::nullopt;
}

std::string AnswerText(std::optional<bool> answer) {
    if (!answer) return "";
    return *answer ? "yes" : "no";
}

/// Takes "left top"; anything else leaves the place alone.
void TakePlace(std::string_view text, std::optional<WindowPlace>& place) {
    constexpr int Farthest = 100'000; // pixels; more than any desktop has
    constexpr int None = Farthest + 1;
    const std::size_t blank = text.find(' ');
    WindowPlace taken{None, None};
    if (blank == text.npos) return;
    TakeNumber(text.substr(0, blank), -Farthest, Farthest, taken.Left);
    TakeNumber(text.substr(blank + 1), -Farthest, Farthest, taken.Top);
    if (taken.Left != None && taken.Top != None) place = taken;
}

std::string PlaceText(const std::optional<WindowPlace>& place) {
    return place ? std::to_string(place->Left) + " " + std::to_string(place->Top) : "";
}

constexpr std::string_view Players[] = {"", "built-in", "control"}; // in the order of ForcedPlayer

void TakePlayer(std::string_view text, RememberedValues& values) {
    const auto* const found = std::find(std::begin(Players), std::end(Players), text);
    if (found != std::end(Players)) values.Sound.Player = static_cast<ForcedPlayer>(found - Players);
}

std::string PlayerText(const RememberedValues& values) {
    return std::string(Players[static_cast<std::size_t>(values.Sound.Player)]);
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
    {"window", TakeWindow,
     [](const RememberedValues& values) {
         return LengthsText(std::array{values.Window.Width, values.Window.Height});
     }},
    {"columns", [](std::string_view text, RememberedValues& values) { TakeLengths(text, values.Columns); },
     [](const RememberedValues& values) { return LengthsText(values.Columns); }},
    {"stay-open",
     [](std::string_view text, RememberedValues& values) { values.PreferenceMarks.StayOpen = AnswerOf(text); },
     [](const RememberedValues& values) { return AnswerText(values.PreferenceMarks.StayOpen); }},
    {"shared-frequencies",
     [](std::string_view text, RememberedValues& values) {
         values.PreferenceMarks.SharedFrequencies = AnswerOf(text);
     },
     [](const RememberedValues& values) { return AnswerText(values.PreferenceMarks.SharedFrequencies); }},
    {"skip-faulty-lines",
     [](std::string_view text, RememberedValues& values) {
         values.PreferenceMarks.SkipFaultyLines = AnswerOf(text);
     },
     [](const RememberedValues& values) { return AnswerText(values.PreferenceMarks.SkipFaultyLines); }},
    {"player", TakePlayer, PlayerText},
    {"sound-device", [](std::string_view text, RememberedValues& values) { values.Sound.Device = text; },
     [](const RememberedValues& values) { return values.Sound.Device; }},
    {"sound-device-name",
     [](std::string_view text, RememberedValues& values) { values.Sound.DeviceName = text; },
     [](const RememberedValues& values) { return values.Sound.DeviceName; }},
    {"place", [](std::string_view text, RememberedValues& values) { TakePlace(text, values.Place); },
     [](const RememberedValues& values) { return PlaceText(values.Place); }},
    {"compact-place",
     [](std::string_view text, RememberedValues& values) { TakePlace(text, values.CompactPlace); },
     [](const RememberedValues& values) { return PlaceText(values.CompactPlace); }},
    {"compact", [](std::string_view text, RememberedValues& values) { values.Compact = text == "yes"; },
     [](const RememberedValues& values) { return AnswerText(values.Compact); }},
    {"on-top",
     [](std::string_view text, RememberedValues& values) { values.PreferenceMarks.OnTop = text == "yes"; },
     [](const RememberedValues& values) { return AnswerText(values.PreferenceMarks.OnTop); }},
    {"hide-when-minimised",
     [](std::string_view text, RememberedValues& values) {
         values.PreferenceMarks.HideWhenMinimised = text == "yes";
     },
     [](const RememberedValues& values) { return AnswerText(values.PreferenceMarks.HideWhenMinimised); }},
    {"start-minimised",
     [](std::string_view text, RememberedValues& values) {
         values.PreferenceMarks.StartMinimised = text == "yes";
     },
     [](const RememberedValues& values) { return AnswerText(values.PreferenceMarks.StartMinimised); }},
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
        // A file that cannot be read must not be overwritten.
        may_write_ = error.Number == FileNotFound;
    }
    RememberedValues values = ParseRemembered(bytes);
    form_.Volume = values.Volume;
    user_agent_ = std::move(values.UserAgent);
    form_.Size = values.Window;
    form_.Compact = values.Compact;
    form_.Place = values.Place;
    form_.CompactPlace = values.CompactPlace;
    marks_ = values.PreferenceMarks;
    sound_ = std::move(values.Sound);
    auto width = values.Columns.begin();
    for (ListView::ColumnHeader& header : form_.lvwDB.ColumnHeaders)
        if (width != values.Columns.end() && *width++ > 0) header.WidthTwips = *std::prev(width);
}

bool RememberedState::StartsMinimised(const std::string& data_folder) {
    try {
        return ParseRemembered(ReadFile(data_folder + RememberedName)).PreferenceMarks.StartMinimised;
    } catch (const RuntimeError&) {
        return false;
    }
}

void RememberedState::Write() {
    if (!may_write_) return;
    try {
        RememberedValues values{form_.Volume,  user_agent_, form_.Size,        {}, marks_, sound_,
                                form_.Compact, form_.Place, form_.CompactPlace};
        auto width = values.Columns.begin();
        for (const ListView::ColumnHeader& header : form_.lvwDB.ColumnHeaders)
            if (width != values.Columns.end()) *width++ = header.WidthTwips;
        ReplaceFile(Path(), RememberedText(values));
    } catch (const RuntimeError&) {
        // The next run then starts from the old file.
    }
}

} // namespace quillon
