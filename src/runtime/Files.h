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

/// Paths of the "*.wav" files in a folder, sorted by name without regard to case. Empty if the folder is
/// missing or its path is not absolute; a trailing backslash is allowed.
std::vector<std::string> WaveFilesIn(std::string_view folder);

/// The whole content of a file.
std::string ReadFile(std::string_view path);

/// Replaces the file's content, or creates it. The content is written beside the old file, which is then
/// replaced atomically, so that no failure leaves a half-written file.
void ReplaceFile(std::string_view path, std::string_view content);

/// The same, unless `still_wanted` returns false just before the old file is replaced. Returns its answer.
bool ReplaceFileIf(std::string_view path, std::string_view content, const std::function<bool()>& still_wanted);

/// Creates a file whose path is relative to `folder`, and the folders on the way to it.
void CreateBelow(const std::string& folder, const std::string& file, std::string_view content);

/// Paths, relative to `folder` (which ends in a backslash), of all files in it and below it; those in it come
/// first.
std::vector<std::string> FilesBelow(const std::string& folder);

/// Appends bytes to the file, which is created if needed.
void AppendFile(std::string_view path, std::string_view content);

} // namespace quillon
