#pragma once

#include "OffsetMemory.h"

#include <array>
#include <string>
#include <string_view>

namespace practice {

enum FieldId {
    Com1, ///< the first four in the order of Radios
    Com1Standby,
    Com2,
    Com2Standby,
    Latitude,
    Longitude,
    Simulator,
    Version,
    FaultInjection,
    Paused,
    FieldCount
};

/// A value in the simulator's memory as the text that a person sees and edits.
struct Field {
    std::string_view name; ///< of its command-line option
    std::string (*text)(const OffsetMemory& memory);
    bool (*set)(OffsetMemory& memory, std::string_view text); ///< false, and no change, if the text is invalid
};

extern const std::array<Field, FieldCount> Fields;

/// The initial state: an FSX at Toronto with a current FSUIPC, not paused.
void SetUp(OffsetMemory& memory);

struct Airport {
    const wchar_t* name;
    std::string_view latitude;
    std::string_view longitude;
};

/// Airports that the aircraft can be moved to.
extern const std::array<Airport, 8> Airports;

void MoveTo(OffsetMemory& memory, const Airport& airport);
bool IsAt(const OffsetMemory& memory, const Airport& airport);

} // namespace practice
