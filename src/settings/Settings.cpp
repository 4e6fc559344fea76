#include "settings/Settings.h"

#include "ports/TextFile.h"
#include "runtime/Files.h"
#include "runtime/Number.h"

#include <algorithm>
#include <array>
#include <vector>

namespace quillon {

namespace {

constexpr std::array<const char*, 4> RadioNames{"Com1", "Com1Stby", "Com2", "Com2Stby"};
constexpr int DefaultRadio = 4;

std::vector<std::string> FirstLines(std::string_view bytes) {
    constexpr std::size_t Most = 5;
    std::string_view rest = SkipByteOrderMark(bytes);
    std::vector<std::string> lines;
    while (lines.size() < Most) {
        const auto line = TakeLine(rest);
        if (!line) break;
        lines.emplace_back(*line);
    }
    while (!lines.empty() && lines.back().empty()) lines.pop_back();
    return lines;
}

bool RadioLineLeftOut(const std::vector<std::string>& lines) {
    return lines.size() == 4 &&
           std::all_of(lines.begin() + 1, lines.end(), [](const auto& l) { return IsNumeric(l); });
}

/// Takes the line's number, if it is one and `convert` does not raise an error because it is out of range.
template <typename Number>
void TakeNumber(const std::string& line, Number (*convert)(double), Number& value) {
    if (!IsNumeric(line)) return;
    try {
        value = convert(Val(line));
    } catch (const RuntimeError&) {
        // Out of the type's range: the default stays.
    }
}

std::string NumberLine(std::int32_t number) {
    return Str(number) + " \r\n";
}

} // namespace

SettingsValues ParseSettings(std::string_view bytes) {
    std::vector<std::string> lines = FirstLines(bytes);
    if (RadioLineLeftOut(lines)) lines.insert(lines.begin() + 1, "");
    SettingsValues values;
    if (lines.size() > 1) values.RadioName = lines[1];
    lines.resize(5);
    TakeNumber(lines[0], CInt, values.ReceptionRange);
    TakeNumber(lines[2], CInt, values.ChatterMinSeconds);
    TakeNumber(lines[3], CInt, values.ChatterMaxSeconds);
    TakeNumber(lines[4], CLng, values.MuteKeyCode);
    return values;
}

std::string SettingsText(const SettingsValues& values) {
    return NumberLine(values.ReceptionRange) + (values.RadioName.empty() ? "" : values.RadioName + "\r\n") +
           NumberLine(values.ChatterMinSeconds) + NumberLine(values.ChatterMaxSeconds) +
           NumberLine(values.MuteKeyCode);
}

std::string RangeCaption(std::int16_t reception_range) {
    return "Set &Range (" + (reception_range == 0 ? "disabled" : std::to_string(reception_range)) + ")";
}

void Settings::ReadIni() {
    const std::string path = Path();
    state_.StartupStep = "Opening " + path;
    CreateIfMissing(path);
    std::string bytes;
    read_ = trap_.Run(LoadErrorsTitle, Icon::Exclamation, [&] { bytes = ReadFile(path); });
    Apply(ParseSettings(bytes));
}

void Settings::CreateIfMissing(const std::string& path) {
    try {
        ReadFile(path);
        return;
    } catch (const RuntimeError& error) {
        // After any other failure the user may still have a file, which must not be replaced.
        if (error.Number != FileNotFound && error.Number != PathNotFound) return;
    }
    SettingsValues values;
    if (state_.mute.MuteKeyCode != 0) values.MuteKeyCode = state_.mute.MuteKeyCode;
    ReplaceFile(path, SettingsText(values));
}

void Settings::Apply(const SettingsValues& values) {
    state_.range.ReceptionRange = values.ReceptionRange;
    state_.form.mnuRangeCaption = RangeCaption(values.ReceptionRange);
    state_.chatter.ChatterMinSeconds = values.ChatterMinSeconds;
    state_.chatter.ChatterMaxSeconds = values.ChatterMaxSeconds;
    state_.form.cboMin.Text = std::to_string(values.ChatterMinSeconds);
    state_.form.cboMax.Text = std::to_string(values.ChatterMaxSeconds);
    state_.mute.MuteKeyCode = values.MuteKeyCode;
    state_.StartupStep = "Setting Comm in use";
    SelectRadio(values.RadioName);
}

void Settings::SelectRadio(const std::string& name) {
    const auto found = std::find(RadioNames.begin(), RadioNames.end(), name);
    int& option = state_.form.ComRadio.Value;
    option = found == RadioNames.end() ? 0 : static_cast<int>(found - RadioNames.begin()) + 1;
    if (name.empty()) option = DefaultRadio;
    if (option != 0) state_.radio.SelectedComm = static_cast<std::int16_t>(option);
}

SettingsValues Settings::InForce() const {
    SettingsValues values{state_.range.ReceptionRange, "", state_.chatter.ChatterMinSeconds,
                          state_.chatter.ChatterMaxSeconds, state_.mute.MuteKeyCode};
    const int option = state_.form.ComRadio.Value;
    if (option != 0) values.RadioName = RadioNames.at(static_cast<std::size_t>(option) - 1);
    return values;
}

void Settings::WriteIni() {
    if (!read_) return;
    trap_.Run("Write QuillonATC.ini error", Icon::Exclamation, [this] {
        const std::string path = Path();
        state_.StartupStep = "Creating " + path;
        ReplaceFile(path, SettingsText(InForce()));
        state_.StartupStep.clear();
    });
}

} // namespace quillon
