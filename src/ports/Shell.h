#pragma once

#include <memory>
#include <string>

namespace quillon {

/// A program that Shell::Start has started; it goes on when this object ends.
class StartedProgram {
  public:
    virtual ~StartedProgram() = default;

    virtual bool HasEnded() = 0;
};

/// The user's desktop, folders and programs.
class Shell {
  public:
    virtual ~Shell() = default;

    /// The current user's application-data folder, without a closing backslash; empty if the system names none.
    virtual std::string ApplicationDataFolder() = 0;

    /// The folder that this program was started from, with a closing backslash.
    virtual std::string ProgramFolder() = 0;

    /// Opens an address, a file or a folder with the program the user has for it, or runs a program; does not
    /// wait. Returns whether there was one to open it.
    virtual bool OpenAddress(const std::string& address) = 0;

    /// Starts a program on a file in a normal window. Raises error 53 when there is no such program.
    virtual std::unique_ptr<StartedProgram> Start(const std::string& program, const std::string& file) = 0;

    /// Puts a text on the clipboard.
    virtual void CopyText(const std::string& text) = 0;

    /// Plays a sound file; does not wait, and says nothing when it cannot.
    virtual void PlaySoundFile(const std::string& path) = 0;
};

} // namespace quillon
