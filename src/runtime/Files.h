#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

// Paths are UTF-8 texts in Windows' form. All failures are RuntimeErrors: 53 no such file, 61 disk full, 70
// permission denied, 75 a folder in a file's place, 76 no such folder, 57 anything else.

/// The path as the standard library wants it on this system.
std::filesystem::path PathOf(std::string_view text);

/// A path of the standard library as UTF-8 text; empty for a name that is no Unicode text, which Windows
/// allows.
std::string TextOf(const std::filesystem::path& path);

bool FileExists(std::string_view path);
bool FolderExists(std::string_view path);

/// Length in bytes; nothing when there is no such file.
std::optional<std::uintmax_t> FileLength(std::string_view path);

/// The whole content of a file.
std::string ReadFile(std::string_view path);

/// Replaces the file's content, or creates it. The content is written whole beside the old file and then put in
/// its place, so that no failure on the way leaves a half-written file.
void ReplaceFile(std::string_view path, std::string_view content);

/// Adds bytes at the end of the file, which is created if needed.
void AppendFile(std::string_view path, std::string_view content);

void DeleteFileAt(std::string_view path);

} // namespace quillon
