#include "runtime/Files.h"

#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <algorithm>
#include <array>

namespace quillon {

namespace {

/// Failures are ignored: the user is told of the earlier one.
void TidyUp(std::string_view path) {
    try {
        if (FileExists(path)) DeleteFileAt(path);
    } catch (const RuntimeError&) { // the file stays behind
    }
}

void CollectFiles(const std::string& root, const std::string& below, std::vector<std::string>& files) {
    for (const std::string& name : NamesIn(root + below, PathKind::File)) files.push_back(below + name);
    for (const std::string& name : NamesIn(root + below, PathKind::Folder))
        CollectFiles(root, below + name + "\\", files);
}

} // namespace

std::vector<std::string> WaveFilesIn(std::string_view folder) {
    while (folder.ends_with('\\')) folder.remove_suffix(1);
    const std::string prefix = std::string(folder) + "\\"; // "C:" alone would be the current folder of drive C
    if (!IsAbsolutePath(prefix)) return {};
    std::vector<std::string> paths = FileNamesIn(folder);
    std::erase_if(paths, [](const std::string& name) { return LCase(Right(name, 4)) != ".wav"; });
    std::sort(paths.begin(), paths.end(),
              [](const std::string& a, const std::string& b) { return LCase(a) < LCase(b); });
    for (std::string& path : paths) path.insert(0, prefix);
    return paths;
}

std::string ReadFile(std::string_view path) {
    FileReader file(path);
    std::string content;
    content.reserve(static_cast<std::size_t>(StampOf(path).value_or(FileStamp()).Length));
    std::array<char, 65536> part;
    while (const std::size_t count = file.Read(part)) content.append(part.data(), count);
    return content;
}

void ReplaceFile(std::string_view path, std::string_view content) {
    ReplaceFileIf(path, content, [] { return true; });
}

bool ReplaceFileIf(std::string_view path, std::string_view content, const std::function<bool()>& still_wanted) {
    if (FolderExists(path)) Raise(PathFileAccessError);
    const std::string beside = std::string(path) + ".new";
    try {
        WriteFile(beside, WriteMode::Anew, content);
        const bool wanted = still_wanted();
        if (wanted)
            MoveFileOver(beside, path);
        else
            DeleteFileAt(beside);
        return wanted;
    } catch (const RuntimeError&) {
        TidyUp(beside);
        throw;
    }
}

void CreateBelow(const std::string& folder, const std::string& file, std::string_view content) {
    for (auto end = file.find('\\'); end != std::string::npos; end = file.find('\\', end + 1))
        MakeFolder(folder + file.substr(0, end));
    ReplaceFile(folder + file, content);
}

std::vector<std::string> FilesBelow(const std::string& folder) {
    std::vector<std::string> files;
    CollectFiles(folder, "", files);
    return files;
}

void AppendFile(std::string_view path, std::string_view content) {
    WriteFile(path, WriteMode::AtEnd, content);
}

} // namespace quillon
