#include "player/AddressProbe.h"

#include "player/FileSource.h"
#include "player/Limits.h"
#include "player/SoundReader.h"
#include "runtime/Files.h"
#include "state/FeedMarkers.h"

#include <array>
#include <utility>

namespace quillon {

namespace {

constexpr std::size_t MostEntries = 5; // tried of each playlist

FeedAnswer Failure(SilenceCause cause, const std::string& about = "") {
    return {Finding::Fails, WordsOf(SilenceReason{cause, about})};
}

/// `entry` is the playlist's entry that led to the sound; empty if the address itself did.
FeedAnswer Success(const std::string& entry, const std::string& redirected_to, bool not_encrypted) {
    if (!redirected_to.empty()) return {Finding::Redirects, "Redirected to " + redirected_to};
    const std::string way = entry.empty() ? "" : "Playlist of " + entry + ": ";
    return {Finding::Answers, way + "Plays" + (not_encrypted ? std::string(", ") + NotEncryptedWords : "")};
}

FeedAnswer TryFolder(const std::string& folder) {
    if (const std::size_t count = WaveFilesIn(folder).size(); count > 0)
        return {Finding::Answers, "Recordings: " + std::to_string(count)};
    return Failure(FolderExists(folder) ? SilenceCause::NoRecordings : SilenceCause::NoSuchFolder, folder);
}

} // namespace

FeedAnswer AddressProbe::Try(const std::string& url) {
    if (url.empty()) return Failure(SilenceCause::NoAddress);
    if (StreamMarker(url) > 0 || PlaylistMarker(url) > 0) return TryPlayable(url);
    if (IsStreamAddress(url)) return Failure(SilenceCause::UnknownProtocol);
    return TryFolder(url);
}

/// The first stop that plays decides. If none does, the answer names the first one that is not a playlist, what
/// is wrong with it, and the playlists on the way to it.
FeedAnswer AddressProbe::TryPlayable(const std::string& url) {
    PlaylistWalk walk(url, servers_, MostEntries);
    std::string way, way_back, first_entry, redirected_to;
    SilenceReason problem;
    while (const auto stop = cancelled_ ? std::nullopt : walk.Next()) {
        Visit visit = VisitStop(*stop);
        if (visit.playlist) visit.problem = walk.Enter(*visit.playlist, visit.from, visit.onward);
        if (stop->depth == 0) redirected_to = visit.redirected_to;
        if (stop->depth == 1) first_entry = stop->address.value_or(stop->entry);
        if (!visit.problem && !visit.playlist) return Success(first_entry, redirected_to, visit.not_encrypted);
        if (problem) continue;
        if (stop->depth > 0) way += "Playlist of " + stop->address.value_or(stop->entry) + ": ";
        if (!visit.redirected_to.empty()) way_back.insert(0, ", redirected to " + visit.redirected_to);
        problem = visit.problem;
    }
    return {Finding::Fails, way + WordsOf(problem) + way_back};
}

AddressProbe::Visit AddressProbe::VisitStop(const PlaylistWalk::Stop& stop) {
    if (stop.problem) return {.problem = stop.problem};
    if (!stop.address) return {.problem = {SilenceCause::UnplayableProtocol, ""}};
    return IsStreamAddress(*stop.address) ? VisitStream(stop) : VisitFile(*stop.address);
}

AddressProbe::Visit AddressProbe::VisitFile(const std::string& path) {
    FileSource file(path);
    const Heard heard = Listen(file);
    return {.problem = heard.problem, .playlist = heard.playlist, .from = path};
}

AddressProbe::Visit AddressProbe::VisitStream(const PlaylistWalk::Stop& stop) {
    const auto parsed = ParseAddress(*stop.address);
    if (!parsed) return {.problem = {SilenceCause::BadAddress, ""}};
    HttpStream stream(*parsed, user_agent_, system_, stop.origin);
    const Heard heard = Listen(stream);
    const bool is_redirected = stream.Address() != AddressText(*parsed);
    return {heard.problem,   is_redirected ? stream.Address() : "",
            heard.playlist,  stream.Address(),
            stream.Onward(), stop.origin.encrypted && stream.Address().starts_with("http://")};
}

AddressProbe::Heard AddressProbe::Listen(ByteSource& source) {
    SoundReader reader(system_, IsStreamAddress(source.Address()));
    std::array<std::uint8_t, ReadSize> room{};
    Heard heard;
    bool has_bytes = false;
    const auto deadline = system_.Now() + StallTimeout;
    while (!cancelled_ && !heard.sound && system_.Now() < deadline) {
        const IoResult result = source.Read(room);
        if (result.status == IoStatus::Connecting || result.status == IoStatus::WouldBlock) {
            system_.Wait(PollInterval);
            continue;
        }
        if (result.status != IoStatus::Ok) break;
        if (result.count == 0) continue;
        if (!std::exchange(has_bytes, true) && source.AnnouncesPlaylist()) reader.ExpectPlaylist();
        PcmQueue unheard;
        if (!reader.Feed(ByteView(room).first(result.count), unheard)) break;
        heard.sound = reader.HasFoundSound();
    }
    if (reader.IsPlaylist() && reader.Playlist().size() <= LongestPlaylist) heard.playlist = reader.Playlist();
    if (heard.playlist || heard.sound) return heard;
    heard.problem = source.Problem();
    if (!heard.problem) heard.problem = reader.Problem();
    return heard;
}

} // namespace quillon
