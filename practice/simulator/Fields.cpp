#include "Fields.h"

#include "../InjectedFault.h"
#include "../Offsets.h"
#include "../Units.h"
#include "Radios.h"
#include "runtime/Number.h"

#include <cmath>
#include <limits>

namespace practice {

namespace {

template <std::size_t Number>
constexpr Field RadioField{
    Radios[Number].name, [](const OffsetMemory& memory) { return RadioText(memory, Radios[Number]); },
    [](OffsetMemory& memory, std::string_view text) { return SetRadio(memory, Radios[Number], text); }};

struct Axis {
    std::uint32_t offset;
    double units;
    double limit; ///< degrees
};

constexpr Axis NorthSouth{LatitudeOffset, LatitudeUnits, 90};
constexpr Axis EastWest{LongitudeOffset, LongitudeUnits, 180};

template <const Axis& axis>
std::string AngleText(const OffsetMemory& memory) {
    return quillon::Format(DegreesOf(memory.Get<Angle>(axis.offset), axis.units), "0.000000");
}

template <const Axis& axis>
bool SetAngle(OffsetMemory& memory, std::string_view text) {
    const auto degrees = DecimalOf(text);
    if (!degrees || std::abs(*degrees) > axis.limit) return false;
    memory.Set(axis.offset, AngleOf(*degrees, axis.units));
    return true;
}

template <typename Number, std::uint32_t Offset>
std::string NumberText(const OffsetMemory& memory) {
    return std::to_string(memory.Get<Number>(Offset));
}

template <typename Number, std::uint32_t Offset>
bool SetNumber(OffsetMemory& memory, std::string_view text) {
    const auto number = NumberOf(text);
    if (!number || *number > std::numeric_limits<Number>::max()) return false;
    memory.Set(Offset, static_cast<Number>(*number));
    return true;
}

std::string VersionText(const OffsetMemory& memory) {
    return "0x" + quillon::Hex(memory.Get<std::uint32_t>(VersionOffset));
}

std::string InjectedFaultText(const OffsetMemory& memory) {
    return FaultText(memory.Get<InjectedFault>(InjectedFaultOffset));
}

bool SetInjectedFault(OffsetMemory& memory, std::string_view text) {
    const auto injected = ParseFault(text);
    if (injected) memory.Set(InjectedFaultOffset, *injected);
    return injected.has_value();
}

} // namespace

const std::array<Field, FieldCount> Fields = {{
    RadioField<0>,
    RadioField<1>,
    RadioField<2>,
    RadioField<3>,
    {"lat", AngleText<NorthSouth>, SetAngle<NorthSouth>},
    {"lon", AngleText<EastWest>, SetAngle<EastWest>},
    {"sim", NumberText<std::uint16_t, SimulatorOffset>, SetNumber<std::uint16_t, SimulatorOffset>},
    {"version", VersionText, SetNumber<std::uint32_t, VersionOffset>},
    {"fault", InjectedFaultText, SetInjectedFault},
    {"paused", NumberText<std::uint16_t, PauseOffset>, SetNumber<std::uint16_t, PauseOffset>},
}};

const std::array<Airport, 8> Airports = {{
    {L"Toronto Pearson (CYYZ)", "43.6767", "-79.6306"},
    {L"New York Kennedy (KJFK)", "40.6398", "-73.7789"},
    {L"Los Angeles (KLAX)", "33.9425", "-118.4081"},
    {L"London Heathrow (EGLL)", "51.4706", "-0.4619"},
    {L"Frankfurt Main (EDDF)", "50.0333", "8.5706"},
    {L"Tokyo Haneda (RJTT)", "35.5523", "139.7797"},
    {L"Sydney Kingsford Smith (YSSY)", "-33.9461", "151.1772"},
    {L"The equator off Africa", "0", "0"},
}};

void MoveTo(OffsetMemory& memory, const Airport& airport) {
    Fields[Latitude].set(memory, airport.latitude);
    Fields[Longitude].set(memory, airport.longitude);
}

bool IsAt(const OffsetMemory& memory, const Airport& airport) {
    OffsetMemory there;
    MoveTo(there, airport);
    return Fields[Latitude].text(there) == Fields[Latitude].text(memory) &&
           Fields[Longitude].text(there) == Fields[Longitude].text(memory);
}

void SetUp(OffsetMemory& memory) {
    constexpr std::pair<FieldId, std::string_view> Values[] = {
        {Version, "0x49750000"}, {Simulator, "8"}, {Com1, "118.70"},
        {Com1Standby, "121.50"}, {Com2, "119.10"}, {Com2Standby, "121.90"},
    };
    for (const auto& [field, text] : Values) Fields[field].set(memory, text);
    MoveTo(memory, Airports.front());
    memory.Set(ValidMarkOffset, ValidMark);
}

} // namespace practice
