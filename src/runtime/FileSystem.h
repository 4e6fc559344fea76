#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

// The operating system's files. Implemented for Windows in win32/system, and in runtime/posix for machines that
// only run the tests. (The standard library's file system and streams would more than double the program's
// size.) Paths and failures are those of runtime/Files.h.

enum class PathKind { Nothing, File, Folder };

PathKind KindOf(std::string_view path);

/// By which a file that has been changed is told from what it was.
struct FileStamp {
    std::uint64_t Length = 0; ///< bytes
    std::int64_t Changed = 0; ///< when, in units of the system's

    bool operator==(const FileStamp&) const = default;
};

/// Empty if there is no such file.
std::optional<FileStamp> StampOf(std::string_view path);

/// An open file, read from its start. Other programs may change, move and delete it meanwhile.
class FileReader {
  public:
    explicit FileReader(std::string_view path);

    /// Fills the buffer as far as the file goes; returns the number of bytes, 0 at the end.
    std::size_t Read(std::span<char> room);

  private:
    std::unique_ptr<void, void (*)(void*)> file_;
};

enum class WriteMode { Anew, AtEnd };

/// Writes the bytes to the file, which is created if needed, and flushes it to disk.
void WriteFile(std::string_view path, WriteMode mode, std::string_view content);

/// Atomically renames `from` to `to`, replacing an existing file.
void MoveFileOver(std::string_view from, std::string_view to);

void DeleteFileAt(std::string_view path);

/// Creates a folder in an existing one; does nothing if it already exists.
void MakeFolder(std::string_view path);

/// Names of the files or of the folders in a folder, in no particular order; empty if it cannot be read.
std::vector<std::string> NamesIn(std::string_view folder, PathKind kind);
inline std::vector<std::string> FileNamesIn(std::string_view folder) {
    return NamesIn(folder, PathKind::File);
}

/// Whether a path does not depend on the current folder or drive.
bool IsAbsolutePath(std::string_view path);

/// Whether a path leads to another machine: a UNC path, or one on a drive that is mapped to a server. Does not
/// touch the path.
bool IsOnServer(std::string_view path);

/// Without a trailing backslash, except for the root of a drive.
std::string CurrentFolder();

} // namespace quillon
