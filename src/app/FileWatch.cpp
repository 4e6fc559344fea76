#include "app/FileWatch.h"

#include "runtime/RuntimeError.h"

#include <memory>

namespace quillon {

namespace {

/// The file's stamp, and its text if it is new but no longer changing.
TextVersion LookAt(const std::string& path, const std::optional<FileStamp>& seen,
                   const std::optional<FileStamp>& loaded, AnsiCodePage& page) {
    const auto stamp = StampOf(path);
    if (!stamp || stamp == loaded || stamp != seen) return {stamp, nullptr};
    try {
        TextVersion version = ReadVersion(path, page);
        if (version.Stamp == stamp && StampOf(path) == stamp) return version;
    } catch (const RuntimeError&) {   // another program still has it
    } catch (const std::exception&) { // no memory for it now
    }
    return {stamp, nullptr};
}

} // namespace

void FileWatch::Poll(const std::string& path, const std::optional<FileStamp>& loaded) {
    constexpr std::chrono::milliseconds Between{
        950}; // a timer that is to tick each second may be a little late
    const auto now = clock_.Uptime();
    if (looking_ || now - looked_at_ < Between) return;
    looking_ = true;
    looked_at_ = now;
    const auto look = std::make_shared<TextVersion>();
    disk_.Start([=, this] { *look = LookAt(path, seen_, loaded, page_); },
                [=, this] {
                    looking_ = false;
                    seen_ = look->Stamp;
                    if (look->Text) changed_(*look);
                });
}

} // namespace quillon
