#include "player/FileSource.h"

#include "player/ContentKind.h"
#include "runtime/RuntimeError.h"

namespace quillon {

bool FileSource::AnnouncesPlaylist() const {
    return quillon::AnnouncesPlaylist({}, path_);
}

IoResult FileSource::Read(std::span<std::uint8_t> room) {
    try {
        if (!file_) file_.emplace(path_);
        const std::size_t count = file_->Read({reinterpret_cast<char*>(room.data()), room.size()});
        return {count > 0 ? IoStatus::Ok : IoStatus::EndOfStream, count};
    } catch (const RuntimeError&) {
        return {IoStatus::Failed};
    }
}

} // namespace quillon
