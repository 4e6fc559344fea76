#pragma once

#include "OffsetMemory.h"

#include <array>
#include <string>
#include <string_view>

namespace practice {

enum FieldId {
    Com1,
    Com1Standby,
    Com2,
    Com2Standby,
    Latitude,
    Longitude,
    Simulator,
    Version,
    Misbehaviour,
    Paused,
    FieldCount
};

/// What a person sees of the simulator's memory, and can change there, as text.
struct Field {
    std::string_view name; ///< of its command line option
    std::string (*text)(const OffsetMemory& memory);
    bool (*set)(OffsetMemory& memory, std::string_view text); ///< false, and no change, for a text that is none
};

extern const std::array<Field, FieldCount> Fields;

/// The cockpit as it is found: an FSX at Toronto with a current FSUIPC, not paused.
void SetUp(OffsetMemory& memory);

struct Airport {
    const wchar_t* name;
    std::string_view latitude;
    std::string_view longitude;
};

/// Places to fly to at once.
extern const std::array<Airport, 8> Airports;

void MoveTo(OffsetMemory& memory, const Airport& airport);
bool IsAt(const OffsetMemory& memory, const Airport& airport);

} // namespace practice
