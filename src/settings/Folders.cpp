#include "settings/Folders.h"

#include <algorithm>

namespace quillon {

namespace {

std::string FindAppPath(const InstallationFolders& installations) {
    const auto found = std::find_if(installations.begin(), installations.end(), FolderExists);
    if (found != installations.end()) return std::string(*found);
    return CurrentFolder() + "\\";
}

} // namespace

std::string DataFolder(Shell& shell) {
    const std::string all = shell.ApplicationDataFolder() + "\\";
    return FolderExists(all + "Quillon") ? all + "Quillon\\" : all;
}

bool FindFolders(Folders& folders, std::string& startup_step, Shell& shell,
                 const InstallationFolders& installations) {
    startup_step = "Setting Application Path";
    folders.AppPath = FindAppPath(installations);
    startup_step = "Getting the DataPath";
    folders.DataPath = DataFolder(shell);
    startup_step = "Verify Data Path";
    folders.WavePath = folders.DataPath + "ATC\\";
    return folders.DataPath != shell.ApplicationDataFolder() + "\\";
}

} // namespace quillon
