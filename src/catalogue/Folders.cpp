#include "catalogue/Folders.h"

#include <algorithm>

namespace quillon {

namespace {

std::string FindAppPath(const InstallationFolders& installations) {
    const auto found = std::find_if(installations.begin(), installations.end(), FolderExists);
    if (found != installations.end()) return std::string(*found);
    return CurrentFolder() + "\\";
}

} // namespace

bool FindFolders(Folders& folders, std::string& startup_step, Shell& shell,
                 const InstallationFolders& installations) {
    startup_step = "Setting Application Path";
    folders.AppPath = FindAppPath(installations);
    startup_step = "Getting the DataPath";
    folders.DataPath = shell.ApplicationDataFolder() + "\\";
    startup_step = "Verify Data Path";
    const bool found = FolderExists(folders.DataPath + "Quillon");
    if (found) folders.DataPath += "Quillon\\";
    folders.WavePath = folders.DataPath + "ATC\\";
    return found;
}

} // namespace quillon
