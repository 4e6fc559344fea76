#include "player/FileSource.h"

#include "player/ContentKind.h"
#include "runtime/Files.h"

namespace quillon {

FileSource::FileSource(const std::string& path) : path_(path), file_(PathOf(path), std::ios::binary) {}

bool FileSource::AnnouncesPlaylist() const {
    return quillon::AnnouncesPlaylist({}, path_);
}

Got FileSource::Read(std::span<std::uint8_t> room) {
    if (!file_) return {Supply::Failed};
    file_.read(reinterpret_cast<char*>(room.data()), static_cast<std::streamsize>(room.size()));
    const auto count = static_cast<std::size_t>(file_.gcount());
    if (count > 0) {
        if (file_.eof()) file_.clear(); // so that the next call finds the end
        return {Supply::Bytes, count};
    }
    return {file_.bad() || !file_.eof() ? Supply::Failed : Supply::End};
}

} // namespace quillon
