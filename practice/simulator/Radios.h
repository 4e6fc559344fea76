#pragma once

#include "../Offsets.h"
#include "OffsetMemory.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace practice {

/// A radio's frequency: "118.70", or "118.305" if the module gives it in Hz. Modules below version 4 do not;
/// whatever stands at those offsets then stays as it is.
std::string RadioText(const OffsetMemory& memory, const Radio& radio);

/// False, and no change, if the text is not a frequency.
bool SetRadio(OffsetMemory& memory, const Radio& radio, std::string_view text);

/// Lets the two forms of a radio follow each other after a program has written `size` bytes.
void FollowWrite(OffsetMemory& memory, std::uint64_t offset, std::uint64_t size);

} // namespace practice
