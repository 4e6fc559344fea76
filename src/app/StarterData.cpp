#include "app/StarterData.h"

#include "app/FeedCheck.h"
#include "catalogue/FeedFile.h"
#include "geo/Airports.h"
#include "runtime/Files.h"
#include "settings/EventLog.h"
#include "settings/Folders.h"
#include "settings/RememberedState.h"
#include "settings/Settings.h"
#include "settings/TraceLog.h"
#include "state/FeedMarkers.h"

#include <algorithm>

namespace quillon {

namespace {

/// A folder on a server is taken on trust: it may take half a minute to say that it is not there.
bool CanBeHeard(const Folders& folders, const FeedRecord& feed) {
    return StreamMarker(feed.URL) > 0 || PlaylistMarker(feed.URL) > 0 || IsOnServer(feed.URL) ||
           FolderExists(FolderOfRecordings(folders, feed.URL));
}

} // namespace

bool StarterData::Offer() {
    const bool has_target = folders_.Portable || !shell_.ApplicationDataFolder().empty();
    if (!has_target || Lacking().empty()) return false;
    return prompts_.Confirm(
        "Welcome to Quillon",
        "Some of the files that Quillon needs are missing. Create them now in\r\r" + folders_.Home +
            "\r\rYou get a catalogue to start with, the world's airports, and recordings that play without a "
            "simulator or internet connection. Nothing is overwritten.",
        Choices::YesByDefault);
}

bool StarterData::FilesAreMissing() {
    return !FileExists(folders_.Home + CatalogueName) || !FileExists(folders_.Home + AirportsName);
}

bool StarterData::NothingToHear() const {
    const std::vector<FeedRecord>& feeds = list_.Items();
    return std::none_of(feeds.begin(), feeds.end(),
                        [this](const FeedRecord& feed) { return CanBeHeard(folders_, feed); });
}

std::vector<std::string> StarterData::Lacking() {
    std::vector<std::string> files = FilesBelow(Source());
    std::erase_if(files, [this](const std::string& file) { return FileExists(folders_.Home + file); });
    return files;
}

void StarterData::Create() {
    const std::string& folder = folders_.Home;
    startup_step_ = "Creating " + folder;
    const bool is_new = !FolderExists(folder);
    MakeFolder(folder);
    if (is_new) MoveFromBareFolder(shell_.ApplicationDataFolder() + "\\");
    for (const std::string& file : Lacking()) {
        startup_step_ = "Creating " + folder;
        startup_step_ += file;
        CreateBelow(folder, file, ReadFile(Source() + file));
        created_catalogue_ |= file == CatalogueName;
    }
    startup_step_.clear();
}

/// Without a data folder, its parent, the application-data folder, was used instead.
void StarterData::MoveFromBareFolder(const std::string& bare) {
    for (const char* name :
         {CatalogueName, BackupName, ReplacedName, AirportsName, SettingsName, RememberedName, TraceLogName,
          EventLogName, OldEventLogName, FeedCheck::ResultsName}) {
        const std::string file = bare + name;
        if (!FileExists(file) || FileExists(folders_.Home + name)) continue;
        startup_step_ = "Moving " + file;
        MoveFileOver(file, folders_.Home + name);
    }
}

} // namespace quillon
