#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillon {

/// What is in a folder of recordings.
struct FolderContent {
    bool Reached = false;           ///< false: there is no such folder, or no way to it
    std::vector<std::string> Waves; ///< paths of its "*.wav" files, sorted by name
};

/// Lists folders beside the window's thread, because a server may take half a minute to say that it is not
/// there.
class FolderLister {
  public:
    virtual ~FolderLister() = default;

    /// Begins to list a folder. The result of an earlier Begin is no longer wanted.
    virtual void Begin(const std::string& folder) = 0;

    /// The result of the last Begin, once; nothing before it is there and after it has been taken.
    virtual std::optional<FolderContent> Result() = 0;
};

} // namespace quillon
