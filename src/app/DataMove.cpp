#include "app/DataMove.h"

#include "catalogue/FeedFile.h"
#include "ports/TextFile.h"
#include "runtime/Files.h"
#include "settings/Folders.h"
#include "state/FeedMarkers.h"

#include <vector>

namespace quillon {

namespace {

bool IsEmpty(const std::string& folder) {
    return NamesIn(folder, PathKind::File).empty() && NamesIn(folder, PathKind::Folder).empty();
}

bool HoldsFeeds(const std::string& file) {
    return file == CatalogueName || file == BackupName || file == ReplacedName;
}

/// Makes feeds refer to the copied recordings by relative paths, which work on any computer. Playlists need
/// full paths.
std::string WithRelativeFolders(std::string text, const std::string& from) {
    const std::string field = "|" + from + "ATC\\";
    for (auto at = text.find(field); at != text.npos; at = text.find(field, at + 1)) {
        const std::string_view address =
            std::string_view(text).substr(at + 1, text.find_first_of("|\n", at + 1) - at - 1);
        if (PlaylistMarker(address) == 0) text.erase(at + 1, from.size());
    }
    return text;
}

} // namespace

void DataMove::TellRefused() {
    prompts_.Message("Quillon",
                     "Quillon cannot write to the folder\r\r" + PortableFolder(shell_) +
                         "\r\rIt keeps your feeds and settings in this one instead:\r\r" + folders_.Home,
                     Icon::Information);
}

void DataMove::OfferCopy() {
    if (!folders_.Portable || !IsEmpty(folders_.Home)) return;
    const std::string from = PersonalFolder(shell_);
    const std::vector<std::string> files = FilesBelow(from);
    if (files.empty() || !IsWanted(from)) return;
    trap_.Run("Copy Error", Icon::Exclamation, [&] {
        for (const std::string& file : files) Copy(from, file);
        startup_step_.clear();
    });
}

bool DataMove::IsWanted(const std::string& from) {
    return prompts_.Confirm(
        "Welcome to Quillon",
        "This Quillon keeps everything in its own folder, which is still empty:\r\r" + folders_.Home +
            "\r\rCopy your feeds, recordings and settings into it? They also stay where they "
            "are:\r\r" +
            from,
        Choices::YesByDefault);
}

void DataMove::Copy(const std::string& from, const std::string& file) {
    startup_step_ = "Copying " + from;
    startup_step_ += file;
    std::string content = ReadFile(from + file);
    if (HoldsFeeds(file)) {
        const std::string text = ReadText(from + file, page_);
        if (std::string moved = WithRelativeFolders(text, from); moved != text) content = std::move(moved);
    }
    CreateBelow(folders_.Home, file, content);
}

} // namespace quillon
