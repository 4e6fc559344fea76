#pragma once

#include "ports/AnsiCodePage.h"
#include "ports/Background.h"
#include "ports/Clock.h"
#include "ports/TextFile.h"

#include <functional>
#include <string>

namespace quillon {

/// Looks at a text file once a second, beside the window's thread, and tells when another program has changed
/// it: after two looks have seen the same change, and the file could be read whole.
class FileWatch {
  public:
    using Report = std::function<void(const TextVersion&)>;

    /// `changed` is called on the window's thread. As long as what it is told is not loaded, it is told again
    /// after each look.
    FileWatch(Background& disk, AnsiCodePage& page, Clock& clock, Report changed)
        : disk_(disk), page_(page), clock_(clock), changed_(std::move(changed)) {}

    /// To be called several times a second. `loaded` is the version that is in use; a missing file counts as
    /// unchanged.
    void Poll(const std::string& path, const std::optional<FileStamp>& loaded);

  private:
    Background& disk_;
    AnsiCodePage& page_;
    Clock& clock_;
    Report changed_;
    std::optional<FileStamp> seen_; ///< by the last look
    std::chrono::milliseconds looked_at_{0};
    bool looking_ = false;
};

} // namespace quillon
