#include "runtime/Files.h"

#include "runtime/RuntimeError.h"

#include <algorithm>
#include <cerrno>
#include <exception>
#include <fstream>
#include <sstream>
#include <system_error>

namespace fs = std::filesystem;

namespace quillon {

namespace {

/// The error for a path that could not be opened, from what the system said of it.
[[noreturn]] void RaiseFor(const fs::path& path, std::error_code cause) {
    std::error_code ignored;
    if (fs::is_directory(path, ignored)) Raise(PathFileAccessError);
    if (cause == std::errc::no_such_file_or_directory || cause == std::errc::not_a_directory)
        Raise(path.has_parent_path() && !fs::is_directory(path.parent_path(), ignored) ? PathNotFound
                                                                                       : FileNotFound);
    if (cause == std::errc::permission_denied || cause == std::errc::device_or_resource_busy ||
        cause == std::errc::operation_not_permitted || cause == std::errc::read_only_file_system)
        Raise(PermissionDenied);
    if (cause == std::errc::no_space_on_device || cause == std::errc::file_too_large) Raise(DiskFull);
    Raise(DeviceIoError);
}

std::error_code LastError() {
    return {errno, std::generic_category()};
}

void WriteTo(const fs::path& path, std::ios::openmode mode, std::string_view content) {
    errno = 0;
    std::ofstream file(path, std::ios::binary | mode);
    if (!file) RaiseFor(path, LastError());
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    if (!file) RaiseFor(path, LastError());
}

} // namespace

fs::path PathOf(std::string_view text) {
    std::u8string path(text.begin(), text.end());
#ifndef _WIN32
    std::replace(path.begin(), path.end(), u8'\\', u8'/');
#endif
    return {path};
}

std::string TextOf(const fs::path& path) {
    try {
        const std::u8string text = path.u8string();
        return {text.begin(), text.end()};
    } catch (const std::exception&) {
        return {};
    }
}

bool FileExists(std::string_view path) {
    std::error_code ignored;
    const fs::path file = PathOf(path);
    return fs::exists(file, ignored) && !fs::is_directory(file, ignored);
}

bool FolderExists(std::string_view path) {
    std::error_code ignored;
    return fs::is_directory(PathOf(path), ignored);
}

std::optional<std::uintmax_t> FileLength(std::string_view path) {
    std::error_code failure;
    const std::uintmax_t length = fs::file_size(PathOf(path), failure);
    return failure ? std::nullopt : std::optional(length);
}

std::string ReadFile(std::string_view path) {
    const fs::path file_path = PathOf(path);
    std::error_code ignored;
    if (fs::is_directory(file_path, ignored)) Raise(PathFileAccessError);
    errno = 0;
    std::ifstream file(file_path, std::ios::binary);
    if (!file) RaiseFor(file_path, LastError());
    std::ostringstream content;
    content << file.rdbuf();
    if (file.bad()) RaiseFor(file_path, LastError());
    return std::move(content).str();
}

void ReplaceFile(std::string_view path, std::string_view content) {
    const fs::path target = PathOf(path);
    fs::path beside = target;
    beside += ".new";
    std::error_code failure;
    if (fs::is_directory(target, failure)) Raise(PathFileAccessError);
    try {
        WriteTo(beside, std::ios::trunc, content);
        fs::rename(beside, target, failure);
        if (failure) RaiseFor(target, failure);
    } catch (const RuntimeError&) {
        std::error_code ignored;
        fs::remove(beside, ignored);
        throw;
    }
}

void AppendFile(std::string_view path, std::string_view content) {
    WriteTo(PathOf(path), std::ios::app, content);
}

void DeleteFileAt(std::string_view path) {
    std::error_code failure;
    const fs::path file = PathOf(path);
    if (!fs::remove(file, failure))
        RaiseFor(file, failure ? failure : std::make_error_code(std::errc::no_such_file_or_directory));
}

} // namespace quillon
