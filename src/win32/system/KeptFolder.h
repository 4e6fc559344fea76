#pragma once

#include "runtime/FileSystem.h"
#include "win32/system/Utf16.h"

#include <windows.h>

#include <string>

namespace quillon {

/// Puts the current folder back at the end of a block in which something may change it.
class KeptFolder {
  public:
    KeptFolder() = default;
    ~KeptFolder() { SetCurrentDirectoryW(folder_.c_str()); }
    KeptFolder(const KeptFolder&) = delete;
    KeptFolder& operator=(const KeptFolder&) = delete;

  private:
    const std::wstring folder_ = Wide(CurrentFolder());
};

} // namespace quillon
