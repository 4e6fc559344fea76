#pragma once

#include <memory>
#include <string>

namespace quillon {

/// A program that Shell::Start has started; it outlives this object.
class StartedProgram {
  public:
    virtual ~StartedProgram() = default;

    virtual bool HasEnded() = 0;
};

/// The user's desktop, folders and programs.
class Shell {
  public:
    virtual ~Shell() = default;

    /// The current user's application-data folder, without a trailing backslash; empty if there is none.
    virtual std::string ApplicationDataFolder() = 0;

    /// The folder that this program was started from, with a trailing backslash.
    virtual std::string ProgramFolder() = 0;

    /// Opens an address, a file or a folder with the user's default program; does not wait. Returns whether
    /// that worked.
    virtual bool OpenAddress(const std::string& address) = 0;

    /// Starts a program of Windows' own, such as "notepad.exe", in a normal window: on a file or, if that is
    /// empty, without one. Raises error 53 if there is no such program.
    virtual std::unique_ptr<StartedProgram> Start(const std::string& program, const std::string& file) = 0;

    /// Puts a text on the clipboard.
    virtual void CopyText(const std::string& text) = 0;

    /// Plays a sound file; does not wait, and ignores failures.
    virtual void PlaySoundFile(const std::string& path) = 0;
};

} // namespace quillon
