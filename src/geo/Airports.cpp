#include "geo/Airports.h"

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

void Airports::LoadAirports(const std::string& folder) {
    trap_.Run("LoadAirports Error", Icon::Exclamation, [&] {
        const std::string path = folder + AirportsName;
        trap_.StartupStep() = "Opening " + path;
        list_ = {};
        TakeUp(ReadVersion(path, page_));
        trap_.StartupStep().clear();
    });
}

void Airports::TakeUp(const TextVersion& version) {
    std::string_view rest = *version.Text;
    std::vector<std::string> lines;
    while (const auto line = TakeLine(rest)) lines.emplace_back(*line);
    list_ = std::move(lines);
    loaded_ = version.Stamp;
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
