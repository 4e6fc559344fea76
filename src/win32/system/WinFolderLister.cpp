#include "win32/system/WinFolderLister.h"

#include "runtime/Files.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <utility>

namespace quillon {

struct WinFolderLister::Listing {
    std::string folder;
    FolderContent content;
    std::atomic<bool> done = false;

    void Run() {
        try {
            content.Waves = WaveFilesIn(folder);
            content.Reached = !content.Waves.empty() || FolderExists(folder);
        } catch (const std::exception&) {
            content = {}; // out of memory
        }
        done = true;
    }
};

void WinFolderLister::Begin(const std::string& folder) {
    std::erase_if(under_way_, [](const auto& listing) { return listing->done.load(); });
    const auto same = std::find_if(under_way_.begin(), under_way_.end(),
                                   [&](const auto& listing) { return listing->folder == folder; });
    if (same != under_way_.end()) {
        wanted_ = *same;
        return;
    }
    wanted_ = std::make_shared<Listing>();
    wanted_->folder = folder;
    try {
        std::thread([listing = wanted_] { listing->Run(); }).detach();
        under_way_.push_back(wanted_);
    } catch (const std::system_error&) {
        wanted_->done = true; // no thread to be had: out of reach for now
    }
}

std::optional<FolderContent> WinFolderLister::Result() {
    if (!wanted_ || !wanted_->done) return std::nullopt;
    const std::shared_ptr<Listing> listing = std::exchange(wanted_, nullptr);
    return listing->content;
}

} // namespace quillon
