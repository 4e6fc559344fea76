#include "playback/ShuffleBag.h"

#include "settings/Folders.h"

#include <utility>

namespace quillon {

void ShuffleBag::Fill(const std::string& url) {
    std::string& path = chatter_.File1Path = FolderOfRecordings(folders_, url);
    while (!path.empty() && path.back() == '\\') path.pop_back();
    List();
    chatter_.IsRefill = chatter_.Held = false;
}

void ShuffleBag::Refill() {
    List();
    chatter_.IsRefill = true;
}

void ShuffleBag::List() {
    chatter_.List3.clear();
    chatter_.List4.clear();
    chatter_.Folder = ChatterFolder::BeingListed;
    startup_step_ = "Adding Wave Files";
    lister_.Begin(chatter_.File1Path);
}

ChatterFolder ShuffleBag::Look() {
    if (chatter_.Folder != ChatterFolder::BeingListed) return chatter_.Folder;
    auto content = lister_.Result();
    if (!content) return chatter_.Folder;
    for (std::string& path : content->Waves) {
        startup_step_ = "Adding " + path;
        chatter_.List3.push_back(std::move(path));
    }
    if (!chatter_.List3.empty()) return chatter_.Folder = ChatterFolder::HasRecordings;
    return chatter_.Folder = content->Reached ? ChatterFolder::Empty : ChatterFolder::OutOfReach;
}

std::optional<std::string> ShuffleBag::Draw(double r) {
    auto& bag = chatter_.List3;
    if (bag.empty()) return std::nullopt;
    const auto drawn = bag.begin() + static_cast<std::ptrdiff_t>(r * static_cast<double>(bag.size()));
    chatter_.List4.push_back(std::move(*drawn));
    bag.erase(drawn);
    return chatter_.List4.back();
}

} // namespace quillon
