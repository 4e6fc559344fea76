#include "geo/Airports.h"

#include "runtime/Files.h"
#include "runtime/Number.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <utility>

namespace quillon {

namespace {

/// A coordinate whose hemisphere letter follows the character at `before`, and whose "*" and "." stand at
/// `star` and `point`.
DmsRecord ParseAngle(std::string_view line, std::ptrdiff_t before, std::ptrdiff_t star, std::ptrdiff_t point,
                     bool negative) {
    const std::string degrees = Mid(line, before + 2, star - before - 2);
    if (negative && !IsNumeric(degrees)) Raise(TypeMismatch);
    const double value = negative ? -Val(degrees) : Val(degrees);
    return {value, Val(Mid(line, point - 2, 2)), Val(Mid(line, point + 1, 2)), Sgn(value)};
}

} // namespace

std::vector<std::string> LinesOf(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
        lines.emplace_back(line);
    }
    return lines;
}

void Airports::LoadAirports() {
    trap_.Run("LoadAirports Error", Icon::Exclamation, [this] {
        const std::string path = state_.folders.DataPath + "Airport.dat";
        state_.StartupStep = "Opening " + path;
        state_.Airports = LinesOf(ReadFile(path));
        state_.StartupStep.clear();
    });
}

std::optional<std::size_t> FindAirport(const std::vector<std::string>& lines, const std::string& icao,
                                       std::size_t start) {
    for (std::size_t i = start; i < lines.size(); ++i)
        if (lines[i].starts_with(icao) && lines[i].find(',') == icao.size()) return i;
    return std::nullopt;
}

AirportPosition ParseAirport(std::string_view line) {
    const std::ptrdiff_t comma = InStr(line, ",");
    const std::ptrdiff_t point = InStr(line, ".");
    const bool south = InStr(comma, line, "S") > 0;
    const DmsRecord latitude = ParseAngle(line, comma, InStr(line, "*"), point, south);

    const std::ptrdiff_t comma2 = InStr(point, line, ",");
    const std::ptrdiff_t star2 = InStr(comma2, line, "*");
    const bool west = InStr(comma2, line, "W") > 0;
    return {latitude, ParseAngle(line, comma2, star2, InStr(comma2, line, "."), west)};
}

} // namespace quillon
