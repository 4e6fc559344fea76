#pragma once

#include "runtime/FileSystem.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

// Paths are UTF-8 texts in Windows' form. All failures are RuntimeErrors: 53 no such file, 61 disk full, 70
// permission denied, 75 a folder in a file's place, 76 no such folder, 57 anything else.

inline bool FileExists(std::string_view path) {
    return KindOf(path) == PathKind::File;
}
inline bool FolderExists(std::string_view path) {
    return KindOf(path) == PathKind::Folder;
}

/// Paths of the "*.wav" files in a folder, sorted by name without regard to case. None when the folder is
/// missing, or not named by its whole path; a backslash may end it.
std::vector<std::string> WaveFilesIn(std::string_view folder);

/// The whole content of a file.
std::string ReadFile(std::string_view path);

/// Replaces the file's content, or creates it. The content is written whole beside the old file and then put in
/// its place, so that no failure on the way leaves a half-written file.
void ReplaceFile(std::string_view path, std::string_view content);

/// The same, unless `still_wanted` says no once the content lies beside the old file; returns what it said.
bool ReplaceFileIf(std::string_view path, std::string_view content, const std::function<bool()>& still_wanted);

/// Adds bytes at the end of the file, which is created if needed.
void AppendFile(std::string_view path, std::string_view content);

} // namespace quillon
