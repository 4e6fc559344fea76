#include "settings/TraceLog.h"

#include "runtime/Files.h"

namespace quillon {

void TraceLog::WriteLog(std::string_view text) {
    AppendFile(Path(), std::string(text) + "\r\n");
}

void TraceLog::Clear() {
    constexpr std::uintmax_t KeptLength = 10;
    const std::string path = Path();
    AppendFile(path, "");
    if (StampOf(path).value_or(FileStamp()).Length > KeptLength) DeleteFileAt(path);
}

} // namespace quillon
