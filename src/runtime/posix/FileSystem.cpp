#include "runtime/FileSystem.h"

#include "runtime/RuntimeError.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillon {

namespace {

std::string Local(std::string_view path) {
    std::string local(path);
    std::replace(local.begin(), local.end(), '\\', '/');
    return local;
}

bool IsFolder(const std::string& local) {
    struct stat entry {};
    return stat(local.c_str(), &entry) == 0 && S_ISDIR(entry.st_mode);
}

/// Raises the error for the system's error number (errno) for a path.
[[noreturn]] void RaiseFor(const std::string& local, int cause) {
    if (IsFolder(local)) Raise(PathFileAccessError);
    switch (cause) {
    case ENOENT:
    case ENOTDIR:
        Raise(IsFolder(local.substr(0, local.rfind('/') + 1)) ? FileNotFound : PathNotFound);
    case EACCES:
    case EPERM:
    case EROFS:
    case EBUSY:
        Raise(PermissionDenied);
    case ENOSPC:
    case EFBIG:
        Raise(DiskFull);
    default:
        Raise(DeviceIoError);
    }
}

std::FILE* Open(const std::string& local, const char* mode) {
    std::FILE* file = IsFolder(local) ? nullptr : std::fopen(local.c_str(), mode);
    if (file == nullptr) RaiseFor(local, errno);
    return file;
}

void Close(void* file) {
    std::fclose(static_cast<std::FILE*>(file));
}

} // namespace

PathKind KindOf(std::string_view path) {
    struct stat entry {};
    const std::string local = Local(path);
    if (stat(local.c_str(), &entry) != 0) return PathKind::Nothing;
    return S_ISDIR(entry.st_mode) ? PathKind::Folder : PathKind::File;
}

std::optional<FileStamp> StampOf(std::string_view path) {
    struct stat entry {};
    if (stat(Local(path).c_str(), &entry) != 0 || S_ISDIR(entry.st_mode)) return std::nullopt;
    constexpr std::int64_t Second = 1'000'000'000;
    return FileStamp{static_cast<std::uint64_t>(entry.st_size),
                     entry.st_mtim.tv_sec * Second + entry.st_mtim.tv_nsec};
}

FileReader::FileReader(std::string_view path) : file_(Open(Local(path), "rb"), Close) {}

std::size_t FileReader::Read(std::span<char> room) {
    auto* file = static_cast<std::FILE*>(file_.get());
    std::clearerr(file); // lets a file be read on that has grown since
    const std::size_t count = std::fread(room.data(), 1, room.size(), file);
    if (count == 0 && std::ferror(file) != 0) Raise(DeviceIoError);
    return count;
}

void WriteFile(std::string_view path, WriteMode mode, std::string_view content) {
    const std::string local = Local(path);
    std::FILE* file = Open(local, mode == WriteMode::AtEnd ? "ab" : "wb");
    const bool written = std::fwrite(content.data(), 1, content.size(), file) == content.size();
    const int cause = errno;
    const bool closed = std::fclose(file) == 0;
    if (!written || !closed) RaiseFor(local, written ? errno : cause);
}

void MoveFileOver(std::string_view from, std::string_view to) {
    if (std::rename(Local(from).c_str(), Local(to).c_str()) != 0) RaiseFor(Local(to), errno);
}

void DeleteFileAt(std::string_view path) {
    const std::string local = Local(path);
    if (unlink(local.c_str()) != 0) RaiseFor(local, errno);
}

void MakeFolder(std::string_view path) {
    const std::string local = Local(path);
    if (mkdir(local.c_str(), 0777) != 0 && !IsFolder(local)) RaiseFor(local, errno);
}

std::vector<std::string> NamesIn(std::string_view folder, PathKind kind) {
    std::vector<std::string> names;
    const std::string local = Local(folder) + "/";
    const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(local.c_str()), closedir);
    if (!open) return names;
    while (const dirent* entry = readdir(open.get())) {
        const std::string name = entry->d_name;
        if (name != "." && name != ".." && KindOf(local + name) == kind) names.push_back(name);
    }
    return names;
}

bool IsAbsolutePath(std::string_view path) {
    return path.starts_with('\\') || path.starts_with('/');
}

bool IsOnServer(std::string_view path) {
    return path.starts_with("\\\\") || path.starts_with("//");
}

std::string CurrentFolder() {
    const std::unique_ptr<char, void (*)(void*)> path(getcwd(nullptr, 0), std::free);
    return path ? path.get() : "";
}

} // namespace quillon
