#include "player/FileSource.h"

#include "player/ContentKind.h"
#include "runtime/RuntimeError.h"

namespace quillon {

bool FileSource::AnnouncesPlaylist() const {
    return quillon::AnnouncesPlaylist({}, path_);
}

Got FileSource::Read(std::span<std::uint8_t> room) {
    try {
        if (!file_) file_.emplace(path_);
        const std::size_t count = file_->Read({reinterpret_cast<char*>(room.data()), room.size()});
        return {count > 0 ? Supply::Bytes : Supply::End, count};
    } catch (const RuntimeError&) {
        return {Supply::Failed};
    }
}

} // namespace quillon
