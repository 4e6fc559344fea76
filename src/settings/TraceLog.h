#pragma once

#include "state/Folders.h"

#include <string>
#include <string_view>

namespace quillon {

inline constexpr const char* TraceLogName = "Trace.log";

/// The developers' log in the data folder. It is never held open. File failures are the errors of
/// runtime/Files.h.
class TraceLog {
  public:
    explicit TraceLog(const Folders& folders) : folders_(folders) {}

    /// Adds the text as one line, as it is.
    void WriteLog(std::string_view text);

    /// At start-up: deletes a log longer than 10 bytes, creates a missing one.
    void Clear();

    std::string Path() const { return folders_.DataPath + TraceLogName; }

  private:
    const Folders& folders_;
};

} // namespace quillon
