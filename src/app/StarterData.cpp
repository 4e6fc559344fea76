#include "app/StarterData.h"

#include "catalogue/FeedFile.h"
#include "geo/Airports.h"
#include "runtime/Files.h"
#include "settings/EventLog.h"
#include "settings/RememberedState.h"
#include "settings/Settings.h"
#include "settings/TraceLog.h"
#include "state/FeedMarkers.h"

#include <algorithm>

namespace quillon {

namespace {

/// A folder on a server is taken on trust: it may take half a minute to say that it is not there.
bool CanBeHeard(const FeedRecord& feed) {
    return StreamMarker(feed.URL) > 0 || PlaylistMarker(feed.URL) > 0 || IsOnServer(feed.URL) ||
           FolderExists(feed.URL);
}

/// Adds the paths, relative to `root`, of all files in its folder `below`, recursively.
void CollectFiles(const std::string& root, const std::string& below, std::vector<std::string>& files) {
    for (const std::string& name : NamesIn(root + below, PathKind::File)) files.push_back(below + name);
    for (const std::string& name : NamesIn(root + below, PathKind::Folder))
        CollectFiles(root, below + name + "\\", files);
}

void CreateWithFolders(const std::string& root, const std::string& file, const std::string& content) {
    for (auto end = file.find('\\'); end != std::string::npos; end = file.find('\\', end + 1))
        MakeFolder(root + file.substr(0, end));
    ReplaceFile(root + file, content);
}

} // namespace

bool StarterData::Offer() {
    if (shell_.ApplicationDataFolder().empty() || Lacking().empty()) return false;
    return prompts_.Confirm(
        "Welcome to Quillon",
        "Some of the files that Quillon needs are missing. Create them now in\r\r" + Target() +
            "\r\rYou get a catalogue to start with, the world's airports, and recordings that play without a "
            "simulator or internet connection. Nothing is overwritten.",
        Choices::YesByDefault);
}

bool StarterData::FilesAreMissing() {
    const std::string folder = Target();
    return !FileExists(folder + CatalogueName) || !FileExists(folder + AirportsName);
}

bool StarterData::NothingToHear() const {
    const std::vector<FeedRecord>& feeds = list_.Items();
    return std::none_of(feeds.begin(), feeds.end(), CanBeHeard);
}

std::vector<std::string> StarterData::Lacking() {
    std::vector<std::string> files;
    CollectFiles(Source(), "", files);
    std::erase_if(files, [folder = Target()](const std::string& file) { return FileExists(folder + file); });
    return files;
}

void StarterData::Create() {
    const std::string folder = Target();
    startup_step_ = "Creating " + folder;
    const bool is_new = !FolderExists(folder);
    MakeFolder(folder);
    if (is_new) MoveFromBareFolder(shell_.ApplicationDataFolder() + "\\");
    for (const std::string& file : Lacking()) {
        startup_step_ = "Creating " + folder;
        startup_step_ += file;
        CreateWithFolders(folder, file, ReadFile(Source() + file));
        created_catalogue_ |= file == CatalogueName;
    }
    startup_step_.clear();
}

/// Without a data folder, its parent, the application-data folder, was used instead.
void StarterData::MoveFromBareFolder(const std::string& bare) {
    for (const char* name :
         {CatalogueName, BackupName, AirportsName, SettingsName, RememberedName, TraceLogName, EventLogName}) {
        const std::string file = bare + name;
        if (!FileExists(file) || FileExists(Target() + name)) continue;
        startup_step_ = "Moving " + file;
        MoveFileOver(file, Target() + name);
    }
}

} // namespace quillon
