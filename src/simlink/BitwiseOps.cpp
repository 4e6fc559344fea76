#include "simlink/BitwiseOps.h"

#include "runtime/Number.h"
#include "runtime/RuntimeError.h"

#include <cmath>
#include <limits>

namespace quillon {

namespace {

std::int32_t Product(std::int32_t a, std::int32_t b) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t product = std::int64_t{a} * b;
    if (product < Limits::min() || product > Limits::max()) Raise(Overflow);
    return static_cast<std::int32_t>(product);
}

} // namespace

std::int32_t ShiftBits(std::int32_t value, std::int32_t bits, bool left) {
    const std::int32_t power = CLng(std::pow(2.0, bits));
    if (left) return Product(value, power);
    if (power == 0) Raise(DivisionByZero);
    return value / power;
}

} // namespace quillon
