#pragma once

#include <cstdint>

namespace quillon {

/// `value` multiplied (left) or divided (right) by 2 to the power `bits`; division truncates toward zero,
/// unlike an arithmetic shift. Raises error 6 if the power (from 2^31 on) or the product does not fit 32 bits,
/// and error 11 if the divisor rounds to 0 (a negative `bits`).
std::int32_t ShiftBits(std::int32_t value, std::int32_t bits, bool left);

} // namespace quillon
