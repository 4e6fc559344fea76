#pragma once

#include <string>

namespace quillon {

/// The user's desktop and folders.
class Shell {
  public:
    virtual ~Shell() = default;

    /// The current user's application-data folder, without a closing backslash; empty if the system names none.
    virtual std::string ApplicationDataFolder() = 0;

    /// Opens an address with the program the user has for it; does not wait.
    virtual void OpenAddress(const std::string& address) = 0;

    /// Plays a sound file; does not wait, and says nothing when it cannot.
    virtual void PlaySoundFile(const std::string& path) = 0;
};

} // namespace quillon
