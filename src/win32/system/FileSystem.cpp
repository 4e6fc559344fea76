#include "runtime/FileSystem.h"

#include "runtime/RuntimeError.h"
#include "win32/system/Handle.h"
#include "win32/system/Utf16.h"

#include <windows.h>

#include <algorithm>

namespace quillon {

namespace {

/// The path for Windows, which accepts a long one only with a "\\?\" prefix and then no "/".
std::wstring Local(std::string_view path) {
    constexpr std::size_t Longest = 247; // leaves room for a short file name in a folder
    std::wstring local = Wide(path);
    std::replace(local.begin(), local.end(), L'/', L'\\');
    if (local.size() <= Longest || local.starts_with(L"\\\\?\\")) return local;
    return local.starts_with(L"\\\\") ? L"\\\\?\\UNC" + local.substr(1) : L"\\\\?\\" + local;
}

std::wstring FolderOf(const std::wstring& local) {
    return local.substr(0, local.rfind(L'\\') + 1);
}

bool IsFolder(const std::wstring& local) {
    const DWORD attributes = GetFileAttributesW(local.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// Raises the RuntimeError for a path that Windows refused with that error code.
[[noreturn]] void RaiseFor(const std::wstring& local, DWORD cause) {
    if (IsFolder(local)) Raise(PathFileAccessError);
    switch (cause) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
        Raise(FolderOf(local).empty() || IsFolder(FolderOf(local)) ? FileNotFound : PathNotFound);
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_FILENAME_EXCED_RANGE:
        Raise(PathNotFound);
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_USER_MAPPED_FILE:
        Raise(PermissionDenied);
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        Raise(DiskFull);
    default:
        Raise(DeviceIoError);
    }
}

HANDLE Open(const std::wstring& local, DWORD access, DWORD sharing, DWORD disposition) {
    HANDLE file =
        CreateFileW(local.c_str(), access, sharing, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) RaiseFor(local, GetLastError());
    return file;
}

void Close(void* file) {
    CloseHandle(file);
}

/// Moves the file and returns 0, or Windows' error after a few tries: a virus scanner may hold a file briefly
/// after it was written.
DWORD MoveWithRetries(const std::wstring& from, const std::wstring& to) {
    constexpr int Tries = 5;
    constexpr DWORD PauseMs = 20;
    DWORD error = 0;
    for (int tried = 0; tried < Tries; ++tried) {
        if (tried > 0) Sleep(PauseMs);
        if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) return 0;
        error = GetLastError();
        if (error != ERROR_ACCESS_DENIED && error != ERROR_SHARING_VIOLATION) break;
    }
    return error;
}

PathKind KindOf(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PathKind::Folder : PathKind::File;
}

} // namespace

PathKind KindOf(std::string_view path) {
    const DWORD attributes = GetFileAttributesW(Local(path).c_str());
    return attributes == INVALID_FILE_ATTRIBUTES ? PathKind::Nothing : KindOf(attributes);
}

std::optional<FileStamp> StampOf(std::string_view path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(Local(path).c_str(), GetFileExInfoStandard, &data) ||
        (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return std::nullopt;
    const auto joined = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32U | low; };
    return FileStamp{joined(data.nFileSizeHigh, data.nFileSizeLow),
                     static_cast<std::int64_t>(
                         joined(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime))};
}

FileReader::FileReader(std::string_view path)
    : file_(Open(Local(path), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                 OPEN_EXISTING),
            Close) {}

std::size_t FileReader::Read(std::span<char> room) {
    DWORD count = 0;
    const auto most = static_cast<DWORD>(std::min<std::size_t>(room.size(), 1U << 20U));
    if (!::ReadFile(file_.get(), room.data(), most, &count, nullptr)) Raise(DeviceIoError);
    return count;
}

void WriteFile(std::string_view path, WriteMode mode, std::string_view content) {
    const std::wstring local = Local(path);
    const bool append = mode == WriteMode::AtEnd;
    const Handle<HANDLE, CloseHandle> file(Open(local, append ? FILE_APPEND_DATA : GENERIC_WRITE,
                                                FILE_SHARE_READ, append ? OPEN_ALWAYS : CREATE_ALWAYS));
    while (!content.empty()) {
        DWORD count = 0;
        const auto most = static_cast<DWORD>(std::min<std::size_t>(content.size(), 1U << 20U));
        if (!::WriteFile(file.Get(), content.data(), most, &count, nullptr)) RaiseFor(local, GetLastError());
        content.remove_prefix(count);
    }
    // Otherwise a power cut could leave the file empty after it has replaced another.
    if (!append && !FlushFileBuffers(file.Get())) RaiseFor(local, GetLastError());
}

void MoveFileOver(std::string_view from, std::string_view to) {
    const std::wstring target = Local(to);
    const DWORD attributes = GetFileAttributesW(target.c_str());
    // Windows refuses this itself; Wine does not.
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        Raise(PermissionDenied);
    if (const DWORD error = MoveWithRetries(Local(from), target); error != 0) RaiseFor(target, error);
}

void DeleteFileAt(std::string_view path) {
    const std::wstring local = Local(path);
    if (!DeleteFileW(local.c_str())) RaiseFor(local, GetLastError());
}

void MakeFolder(std::string_view path) {
    const std::wstring local = Local(path);
    if (CreateDirectoryW(local.c_str(), nullptr)) return;
    const DWORD cause = GetLastError();
    if (!IsFolder(local)) RaiseFor(local, cause);
}

std::vector<std::string> NamesIn(std::string_view folder, PathKind kind) {
    std::vector<std::string> names;
    WIN32_FIND_DATAW entry{};
    HANDLE search = FindFirstFileW((Local(folder) + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return names;
    const Handle<HANDLE, FindClose> open(search);
    do {
        const std::wstring name = entry.cFileName;
        if (name != L"." && name != L".." && KindOf(entry.dwFileAttributes) == kind)
            names.push_back(Narrow(name));
    } while (FindNextFileW(open.Get(), &entry));
    return names;
}

bool IsAbsolutePath(std::string_view path) {
    return path.starts_with("\\\\") ||
           (path.size() >= 3 && path[1] == ':' && (path[2] == '\\' || path[2] == '/'));
}

bool IsOnServer(std::string_view path) {
    const std::wstring local = Local(path);
    if (local.starts_with(L"\\\\")) return true;
    return local.size() >= 2 && local[1] == L':' &&
           GetDriveTypeW((local.substr(0, 2) + L"\\").c_str()) == DRIVE_REMOTE;
}

std::string CurrentFolder() {
    std::wstring path(GetCurrentDirectoryW(0, nullptr), L'\0');
    path.resize(GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data()));
    return Narrow(path);
}

} // namespace quillon
