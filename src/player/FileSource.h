#pragma once

#include "player/ByteSource.h"
#include "runtime/Files.h"

#include <optional>
#include <string>

namespace quillon {

/// The bytes of a file of this computer.
class FileSource : public ByteSource {
  public:
    /// `path` is UTF-8 text. A file that cannot be opened fails when it is read.
    explicit FileSource(const std::string& path) : path_(path) {}

    Got Read(std::span<std::uint8_t> room) override;
    bool IsLive() const override { return false; }
    std::string Address() const override { return path_; }
    bool AnnouncesPlaylist() const override;

  private:
    std::string path_;
    std::optional<FileReader> file_; // opened by the first reading
};

} // namespace quillon
