#pragma once

#include "player/ByteSource.h"
#include "runtime/Files.h"

#include <optional>
#include <string>

namespace quillon {

/// The bytes of a local file.
class FileSource : public ByteSource {
  public:
    /// `path` is UTF-8. A file that cannot be opened makes Read fail.
    explicit FileSource(const std::string& path) : path_(path) {}

    IoResult Read(std::span<std::uint8_t> room) override;
    bool IsLive() const override { return false; }
    std::string Address() const override { return path_; }
    bool AnnouncesPlaylist() const override;
    SilenceReason Problem() const override {
        return {file_ ? SilenceCause::None : SilenceCause::NoSuchFile, ""};
    }

  private:
    std::string path_;
    std::optional<FileReader> file_; // opened by the first Read
};

} // namespace quillon
