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

/// The folder "Data" beside the program, in which everything is kept where it exists.
std::string PortableFolder(Shell& shell);

/// The folder "Quillon" in the user's application data.
std::string PersonalFolder(Shell& shell);

/// Decides which of the two is `Home`. Returns false if there is a portable folder that cannot be written to.
bool FindHome(Folders& folders, Shell& shell);

/// `Home`, or the folder that it would be in while it does not exist.
std::string DataFolder(const Folders& folders);

/// The folder that a feed's address names. One without a drive or server is in the data folder; anything else
/// is returned as it is.
std::string FolderOfRecordings(const Folders& folders, std::string_view url);

/// Finds `AppPath`, the first installation folder that exists, else the current directory; `DataPath`, the
/// data folder; and `WavePath`, the folder "ATC" in `DataPath`. Returns whether `Home` exists.
bool FindFolders(Folders& folders, std::string& startup_step,
                 const InstallationFolders& installations = DefaultInstallationFolders);

/// Whether there is a file (not a folder) of that path.
inline bool FExists(std::string_view path) {
    return FileExists(path);
}

} // namespace quillon
