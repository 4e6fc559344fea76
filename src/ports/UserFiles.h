#pragma once

#include "ports/Clock.h"

#include <string>

namespace quillon {

/// What the system does with the user's files beyond reading and writing them.
class UserFiles {
  public:
    virtual ~UserFiles() = default;

    /// Moves the file to the recycle bin. The shell asks the user by itself, who may refuse: the file then
    /// stays.
    virtual void Delete2Recycle(const std::string& path) = 0;

    /// Sets when the file was last changed, to the second; the times of its creation and last reading stay.
    /// Returns whether that succeeded.
    virtual bool SetFileDateTime(const std::string& path, TimePoint local) = 0;
};

} // namespace quillon
