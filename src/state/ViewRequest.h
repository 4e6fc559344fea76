#pragma once

#include <cstdint>

namespace quillon {

/// Counts how often handlers have asked the view to do something once. The view compares it with the count it
/// last served, and serves requests that came in between as one.
using ViewRequest = std::uint64_t;

} // namespace quillon
