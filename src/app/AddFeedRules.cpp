#include "app/AddFeed.h"
#include "radio/Channel.h"
#include "runtime/Number.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr const char* InvalidCharacter = "Invalid character";
constexpr const char* InvalidFrequency = "Frequency - Invalid format";
constexpr double LowestFrequency = 118.0; // MHz
constexpr double HighestFrequency = 136.97;

using Fault = std::optional<EntryFault>;

/// A separator or a line end would break the entry's line, and a leading "//" would make it a comment.
Fault UnfitForALine(const frmAddATC& form) {
    for (const AddBox box : {AddBox::txtICAO, AddBox::txtCity, AddBox::txtURL, AddBox::txtFreq}) {
        const auto length = static_cast<std::ptrdiff_t>(Len(form[box]));
        if (form[box].find_first_of("|\r\n") != std::string::npos)
            return EntryFault{InvalidCharacter,
                              "An entry cannot contain \"|\" or a line break, because they separate the "
                              "catalogue's fields and lines.",
                              {box, 0, length}};
    }
    if (form[AddBox::txtICAO].starts_with("//"))
        return EntryFault{InvalidCharacter,
                          "An entry cannot begin with \"//\", which marks a comment.",
                          {AddBox::txtICAO, 0, 4}};
    return std::nullopt;
}

Fault BadIcao(const std::string& icao) {
    if (IsIcao(icao)) return std::nullopt;
    return EntryFault{"ICAO - Invalid format",
                      "Invalid ICAO format!  ICAO must be 3 or 4 characters",
                      {AddBox::txtICAO, 0, 4}};
}

/// 0 for a number that is too large, such as "1e9999": it is invalid as well.
double Megahertz(const std::string& frequency) {
    try {
        return Val(frequency);
    } catch (const RuntimeError&) {
        return 0;
    }
}

/// "###.###", whatever its digits.
bool HasThreeDecimals(const std::string& frequency) {
    const auto digits =
        std::count_if(frequency.begin(), frequency.end(), [](char c) { return c >= '0' && c <= '9'; });
    return frequency.size() == 7 && digits == 6 && frequency[3] == '.';
}

bool CanBeTuned(const std::string& frequency) {
    if (HasThreeDecimals(frequency)) return Channel::Named(frequency).has_value();
    const double value = Megahertz(frequency);
    const std::string last = Right(frequency, 1);
    return value >= LowestFrequency && value <= HighestFrequency &&
           std::string("134689").find(last) == std::string::npos;
}

Fault BadFrequency(const std::string& frequency) {
    const frmAddATC::Focus where{AddBox::txtFreq, 0, 0};
    // Either half of the format will do: "123456" and "118.0" are judged by their value.
    if (Len(frequency) != 6 && Mid(frequency, 4, 1) != ".")
        return EntryFault{InvalidFrequency, "Invalid Frequency format!  Frequency must be entered as ###.##",
                          where};
    if (!CanBeTuned(frequency))
        return EntryFault{InvalidFrequency,
                          "Invalid Frequency format!\r\rFlight Simulator only alows the numbers 0,2,5,7 as the "
                          "last digit of a Comm frequency.",
                          where};
    return std::nullopt;
}

Fault MissingCity(SourceKind kind, const std::string& city) {
    const std::size_t length = Len(city);
    const bool missing = (kind == SourceKind::LiveATC && length == 0) ||
                         (kind == SourceKind::InternetRadio && length == Len(RadioCity)) ||
                         (kind == SourceKind::WaveFiles && length == Len(WaveCity));
    if (!missing) return std::nullopt;
    return EntryFault{"Missing Data",
                      "Missing Data! Please enter a City name",
                      {AddBox::txtCity, static_cast<std::ptrdiff_t>(length), 0}};
}

Fault FrequencyInUse(const frmAddATC& form, const std::string& frequency) {
    const bool in_use = std::any_of(form.lstAdd.begin(), form.lstAdd.end(), [&](const auto& stated) {
        return FrequencyKey(stated.Frequency) == FrequencyKey(frequency) &&
               (!form.SharedFrequencies || stated.Icao == form[AddBox::txtICAO]);
    });
    if (!in_use) return std::nullopt;
    const auto selected = std::max<std::ptrdiff_t>(6, static_cast<std::ptrdiff_t>(frequency.size()));
    return EntryFault{"Available Frequencies",
                      "Frequency " + frequency + " is already in use!",
                      {AddBox::txtFreq, 0, selected}};
}

} // namespace

bool IsIcao(const std::string& text) {
    return Len(text) >= 3 && Len(text) <= 4;
}

std::string CompletedFrequency(const std::string& frequency) {
    const std::string zeros = "000.00";
    if (frequency.size() < 3 || frequency.size() > zeros.size()) return frequency;
    for (std::size_t i = 0; i < frequency.size(); ++i) {
        const bool digit = frequency[i] >= '0' && frequency[i] <= '9';
        if (zeros[i] == '.' ? frequency[i] != '.' : !digit) return frequency;
    }
    return frequency + zeros.substr(frequency.size());
}

std::optional<EntryFault> FindFault(const frmAddATC& form) {
    if (Fault fault = BadIcao(form[AddBox::txtICAO])) return fault;
    const std::string& frequency = form[AddBox::txtFreq];
    if (frequency.empty()) {
        if (Fault fault = MissingCity(form.Kind, form[AddBox::txtCity])) return fault;
    } else {
        if (Fault fault = BadFrequency(frequency)) return fault;
        if (Fault fault = FrequencyInUse(form, frequency)) return fault;
    }
    return UnfitForALine(form);
}

} // namespace quillon
