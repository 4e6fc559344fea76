#pragma once

#include "ports/Clock.h"

#include <string>

namespace quillon {

/// What else the system can do with the user's files.
class UserFiles {
  public:
    virtual ~UserFiles() = default;

    /// Moves the file to the Recycle Bin. The shell may ask the user, who may refuse: the file then stays.
    virtual void Delete2Recycle(const std::string& path) = 0;

    /// Sets the time of the last change, to the second; creation and access times stay. Returns whether that
    /// succeeded.
    virtual bool SetFileDateTime(const std::string& path, TimePoint local) = 0;
};

} // namespace quillon
