#include "settings/Folders.h"

#include "runtime/RuntimeError.h"
#include "state/FeedMarkers.h"

#include <algorithm>

namespace quillon {

namespace {

std::string FindAppPath(const InstallationFolders& installations) {
    const auto found = std::find_if(installations.begin(), installations.end(), FolderExists);
    if (found != installations.end()) return std::string(*found);
    return CurrentFolder() + "\\";
}

/// Permissions and the kind of disk do not tell reliably, so this writes a file.
bool CanBeWrittenTo(const std::string& folder) {
    const std::string file = folder + "Quillon.try";
    try {
        WriteFile(file, WriteMode::Anew, "");
        DeleteFileAt(file);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

bool HasDriveOrServer(std::string_view path) {
    return IsAbsolutePath(path) || IsOnServer(path) || path.find(':') == 1;
}

} // namespace

std::string PortableFolder(Shell& shell) {
    return shell.ProgramFolder() + "Data\\";
}

std::string PersonalFolder(Shell& shell) {
    return shell.ApplicationDataFolder() + "\\Quillon\\";
}

bool FindHome(Folders& folders, Shell& shell) {
    const std::string portable = PortableFolder(shell);
    const bool wanted = FolderExists(portable);
    folders.Portable = wanted && CanBeWrittenTo(portable);
    folders.Home = folders.Portable ? portable : PersonalFolder(shell);
    return folders.Portable == wanted;
}

std::string DataFolder(const Folders& folders) {
    const std::string& home = folders.Home;
    return FolderExists(home) ? home : home.substr(0, home.rfind('\\', home.size() - 2) + 1);
}

std::string FolderOfRecordings(const Folders& folders, std::string_view url) {
    const bool is_folder = StreamMarker(url) == 0 && PlaylistMarker(url) == 0 && url.find("://") == url.npos;
    if (url.empty() || !is_folder || HasDriveOrServer(url)) return std::string(url);
    url.remove_prefix(std::min(url.find_first_not_of('\\'), url.size()));
    return folders.DataPath + std::string(url);
}

bool FindFolders(Folders& folders, std::string& startup_step, const InstallationFolders& installations) {
    startup_step = "Setting Application Path";
    folders.AppPath = FindAppPath(installations);
    startup_step = "Getting the DataPath";
    folders.DataPath = DataFolder(folders);
    startup_step = "Verify Data Path";
    folders.WavePath = folders.DataPath + "ATC\\";
    return folders.DataPath == folders.Home;
}

} // namespace quillon
