#pragma once

#include "state/Folders.h"

#include <string>
#include <string_view>

namespace quillon {

inline constexpr const char* TraceLogName = "Trace.log";

/// The developers' log in the data folder. It is not kept open. Failures raise the errors of runtime/Files.h.
class TraceLog {
  public:
    explicit TraceLog(const Folders& folders) : folders_(folders) {}

    /// Appends the text as one line.
    void WriteLog(std::string_view text);

    /// At start-up: deletes a log longer than 10 bytes, and creates a missing one.
    void Clear();

    std::string Path() const { return folders_.DataPath + TraceLogName; }

  private:
    const Folders& folders_;
};

} // namespace quillon
