#pragma once

#include <chrono>
#include <cstddef>

namespace quillon {

/// A source that sends nothing for this long is given up.
constexpr std::chrono::seconds StallTimeout{10};

/// A thread that plays or tries an address looks at least this often whether it has been cancelled.
constexpr std::chrono::milliseconds PollInterval{100};

/// Whoever ends the program waits this long for such a thread, and leaves one behind that takes longer.
constexpr std::chrono::milliseconds ShutdownTimeout{500};

/// Sources are read in pieces of this many bytes.
constexpr std::size_t ReadSize = 4096;

/// A decoder may reject single damaged frames, but is given up after this many in a row.
constexpr int MostDecodingFailures = 100;

} // namespace quillon
