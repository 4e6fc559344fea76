#include "playback/CurrentFeed.h"

#include "runtime/Files.h"
#include "runtime/Text.h"
#include "state/FeedMarkers.h"

#include <algorithm>
#include <filesystem>

namespace quillon {

namespace {

std::vector<std::string> WaveFilesOf(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code failure;
    for (std::filesystem::directory_iterator entry(PathOf(folder), failure), end; !failure && entry != end;
         entry.increment(failure)) {
        std::error_code ignored;
        const std::string name = TextOf(entry->path().filename());
        if (LCase(Right(name, 4)) == ".wav" && entry->is_regular_file(ignored)) names.push_back(name);
    }
    std::sort(names.begin(), names.end(),
              [](const std::string& a, const std::string& b) { return LCase(a) < LCase(b); });
    return names;
}

} // namespace

void MakeCurrent(ProgramState& state, const FeedRecord& record) {
    FeedState& feed = state.feed;
    feed.FeedIcao = record.ICAO;
    feed.FeedCity = record.City;
    feed.FeedFrequency = record.Freq;
    feed.FeedUrl = record.URL;
    feed.RadioFeedMarker = RadioMarker(feed.FeedCity);
    feed.WplMarker = PlaylistMarker(feed.FeedUrl);
    feed.FeedUrlMarker = feed.WplMarker > 0 ? "1" : std::to_string(StreamMarker(feed.FeedUrl));
    state.form.Label2 = {feed.RadioFeedMarker > 0 ? "Net Radio" : "", ""};
    state.range.InRange = false;
    state.range.AirportSearchStart = 1;
}

void ClearCurrentFeed(ProgramState& state) {
    MakeCurrent(state, {});
}

void FillShuffleBag(ProgramState& state, const std::string& folder) {
    ChatterState& chatter = state.chatter;
    chatter.File1Path = folder;
    while (!chatter.File1Path.empty() && chatter.File1Path.back() == '\\') chatter.File1Path.pop_back();
    chatter.List3.clear();
    chatter.List4.clear();
    for (const std::string& name : WaveFilesOf(chatter.File1Path))
        chatter.List3.push_back(chatter.File1Path + "\\" + name);
}

void EmptyPlayer(MediaPlayer& player) {
    player.SetUrl("");
    player.Stop();
}

void PutInCharge(ProgramState& state, std::int16_t timer_id) {
    for (int id = 1; id <= 4; ++id) state.form.Timer(id).Enabled = id == timer_id;
    state.feed.ActiveTimerId = timer_id;
}

} // namespace quillon
