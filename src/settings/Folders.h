#pragma once

#include "ports/Shell.h"
#include "runtime/Files.h"
#include "state/Folders.h"

#include <array>
#include <string>
#include <string_view>

namespace quillon {

/// Where the program may be installed, in the order in which they are tried.
using InstallationFolders = std::array<std::string_view, 2>;
inline constexpr InstallationFolders DefaultInstallationFolders{"C:\\Program Files\\Quillon\\",
                                                                "C:\\Program Files (x86)\\Quillon\\"};

/// The folder "Quillon" in the user's application data, or that folder itself if there is none. Ends in a
/// backslash.
std::string DataFolder(Shell& shell);

/// Finds `AppPath`, the first installation folder that exists, else the current directory; `DataPath`, the
/// data folder; and `WavePath`, the folder "ATC" in `DataPath`. Returns whether the program's own data folder
/// exists.
bool FindFolders(Folders& folders, std::string& startup_step, Shell& shell,
                 const InstallationFolders& installations = DefaultInstallationFolders);

/// Whether there is a file (not a folder) of that path.
inline bool FExists(std::string_view path) {
    return FileExists(path);
}

} // namespace quillon
