#pragma once

#include "ports/Background.h"
#include "ports/Clock.h"
#include "state/Folders.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillon {

inline constexpr const char* EventLogName = "Events.log";
inline constexpr const char* OldEventLogName = "Events.old.log";

/// The users' log in the data folder, for reports of problems: lines with a time. It is written beside the
/// window's thread; failures are silent. Together with the older file it stays below 512 KiB.
class EventLog {
  public:
    EventLog(const Folders& folders, Background& disk, Clock& clock)
        : folders_(folders), disk_(disk), clock_(clock) {}

    /// Adds a line, without what addresses in it keep secret. A line like the one before is dropped.
    void Add(std::string_view text);

    std::string Path() const { return folders_.DataPath + EventLogName; }

  private:
    void Write();

    const Folders& folders_;
    Background& disk_;
    Clock& clock_;
    std::string last_;
    std::string waiting_; ///< lines for the next write
    bool writing_ = false;
};

/// The text in one line. Its addresses lose user, password and query.
std::string LoggedText(std::string_view text);

} // namespace quillon
