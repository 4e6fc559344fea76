#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

// What the operating system does with files: the one seam between systems below the ports. Windows' side is in
// win32/, that of the machines on which only the tests run in runtime/posix/. (The standard library's file
// system and streams would more than double the program's size.) Paths and failures are those of
// runtime/Files.h.

enum class PathKind { Nothing, File, Folder };

PathKind KindOf(std::string_view path);

/// Length of a file in bytes; nothing when there is no such file.
std::optional<std::uint64_t> FileLength(std::string_view path);

/// An open file, read from its front. It may be changed, moved and deleted meanwhile.
class FileReader {
  public:
    explicit FileReader(std::string_view path);

    /// Fills the room as far as the file goes; 0 at its end.
    std::size_t Read(std::span<char> room);

  private:
    std::unique_ptr<void, void (*)(void*)> file_;
};

enum class WriteMode { Anew, AtEnd };

/// Writes the bytes into the file, which is created if needed, and out to the disk.
void WriteFile(std::string_view path, WriteMode mode, std::string_view content);

/// Puts a file in the place of another, or of none, at one stroke.
void MoveFileOver(std::string_view from, std::string_view to);

void DeleteFileAt(std::string_view path);

/// Creates a folder in an existing one. One that is there already is left as it is.
void MakeFolder(std::string_view path);

/// Names of what is of one kind in a folder, in no particular order; none when it cannot be read.
std::vector<std::string> NamesIn(std::string_view folder, PathKind kind);
inline std::vector<std::string> FileNamesIn(std::string_view folder) {
    return NamesIn(folder, PathKind::File);
}

/// Whether a path leads to the same place wherever one starts.
bool IsWholePath(std::string_view path);

/// Without a backslash at its end, unless it is a drive's root.
std::string CurrentFolder();

} // namespace quillon
