#include "player/AddressProbe.h"

#include "player/FileSource.h"
#include "player/Limits.h"
#include "player/SoundReader.h"
#include "runtime/Files.h"
#include "state/FeedMarkers.h"

#include <array>

namespace quillon {

namespace {

constexpr std::size_t MostEntries = 5; // tried of each playlist

FeedAnswer Failure(const std::string& words) {
    return {Finding::Fails, words};
}

/// `entry` is the playlist's entry that led to the sound; empty if the address itself did.
FeedAnswer Success(const std::string& entry, const std::string& redirected_to) {
    if (!redirected_to.empty()) return {Finding::Redirects, "Redirected to " + redirected_to};
    return {Finding::Answers, entry.empty() ? "Plays" : "Playlist of " + entry + ": Plays"};
}

FeedAnswer TryFolder(const std::string& folder) {
    if (const std::size_t count = WaveFilesIn(folder).size(); count > 0)
        return {Finding::Answers, "Recordings: " + std::to_string(count)};
    return Failure(FolderExists(folder) ? "No recordings (.wav) in the folder" : "There is no such folder");
}

std::string StatusWords(int status) {
    const std::string number = " (" + std::to_string(status) + ")";
    if (status / 100 == 3) return "Redirects in circles or to nowhere" + number;
    if (status == 401) return "It wants a password" + number;
    if (status == 403) return "The server refuses it" + number;
    if (status == 404) return "No such feed there, or off the air" + number;
    if (status == 410) return "Gone for good" + number;
    if (status >= 500) return "The server has trouble" + number;
    return "The server sends no sound" + number;
}

std::string Unplayable(const std::string& problem) {
    return problem.empty() ? "Nothing that Quillon can play" : problem;
}

/// Why a stream could not be heard.
std::string Reason(const HttpStream& stream, IoStatus last, bool bytes, const std::string& problem) {
    const bool in_time = last != IoStatus::WouldBlock;
    const bool answered = stream.Reached() == HttpStream::Stage::Answered;
    if (!stream.Problem().empty()) return stream.Problem();
    if (answered && stream.Status() != 200) return StatusWords(stream.Status());
    switch (stream.Reached()) {
    case HttpStream::Stage::NoServer:
        return "No such server, or no way to it";
    case HttpStream::Stage::NoConnection:
        return in_time ? "The server takes no connections" : "No answer within ten seconds";
    case HttpStream::Stage::NoAnswer:
        return in_time ? "It answers nothing of use" : "Connected, but no answer within ten seconds";
    case HttpStream::Stage::Answered:
        break;
    }
    if (last == IoStatus::NotAudio) return "A web page instead of sound";
    return bytes ? Unplayable(problem) : "It answers, but sends nothing";
}

/// Why nothing in a playlist can be tried; empty if something can.
std::string ProblemOf(PlaylistWalk::Found found) {
    if (found == PlaylistWalk::Found::Stops) return {};
    return found == PlaylistWalk::Found::Nothing ? "The playlist is empty"
                                                 : "Playlists within playlists, too deep";
}

} // namespace

FeedAnswer AddressProbe::Try(const std::string& url) {
    if (url.empty()) return Failure("The line has no address");
    if (StreamMarker(url) > 0 || PlaylistMarker(url) > 0) return TryPlayable(url);
    if (IsStreamAddress(url)) return Failure("Must begin with http:// or https://");
    return TryFolder(url);
}

/// The first stop that plays decides. If none does, the answer names the first one that is not a playlist, what
/// is wrong with it, and the playlists on the way to it.
FeedAnswer AddressProbe::TryPlayable(const std::string& url) {
    PlaylistWalk walk(url, MostEntries);
    std::string way, way_back, problem, first_entry, redirected_to;
    while (const auto stop = cancelled_ ? std::nullopt : walk.Next()) {
        Visit visit = VisitStop(*stop);
        if (visit.playlist) visit.problem = ProblemOf(walk.Enter(*visit.playlist, visit.from));
        if (stop->depth == 0) redirected_to = visit.redirected_to;
        if (stop->depth == 1) first_entry = stop->address.value_or(stop->entry);
        if (visit.problem.empty() && !visit.playlist) return Success(first_entry, redirected_to);
        if (!problem.empty()) continue;
        if (stop->depth > 0) way += "Playlist of " + stop->address.value_or(stop->entry) + ": ";
        if (!visit.redirected_to.empty()) way_back.insert(0, ", redirected to " + visit.redirected_to);
        problem = visit.problem;
    }
    return Failure(way + problem + way_back);
}

AddressProbe::Visit AddressProbe::VisitStop(const PlaylistWalk::Stop& stop) {
    if (!stop.address) return {UnsupportedProtocol, "", {}, ""};
    return IsStreamAddress(*stop.address) ? VisitStream(*stop.address) : VisitFile(*stop.address);
}

AddressProbe::Visit AddressProbe::VisitFile(const std::string& path) {
    if (!FileExists(path)) return {"There is no such file", "", {}, ""};
    FileSource file(path);
    const Heard heard = Listen(file);
    const bool plays = heard.playlist || heard.sound;
    return {plays ? "" : Unplayable(heard.problem), "", heard.playlist, path};
}

AddressProbe::Visit AddressProbe::VisitStream(const std::string& url) {
    const auto parsed = ParseAddress(url);
    if (!parsed) return {"This is no address of a server", "", {}, ""};
    HttpStream stream(*parsed, user_agent_, system_);
    const Heard heard = Listen(stream);
    const bool plays = heard.playlist || heard.sound;
    const std::string problem = plays ? "" : Reason(stream, heard.last, heard.bytes, heard.problem);
    const bool is_redirected = stream.Address() != AddressText(*parsed);
    return {problem, is_redirected ? stream.Address() : "", heard.playlist, stream.Address()};
}

AddressProbe::Heard AddressProbe::Listen(ByteSource& source) {
    SoundReader reader(system_);
    std::array<std::uint8_t, ReadSize> room{};
    Heard heard;
    const auto deadline = system_.Now() + StallTimeout;
    while (!cancelled_ && !heard.sound && system_.Now() < deadline) {
        const IoResult result = source.Read(room);
        heard.last = result.status == IoStatus::Connecting ? IoStatus::WouldBlock : result.status;
        if (heard.last == IoStatus::WouldBlock) {
            system_.Wait(PollInterval);
            continue;
        }
        if (result.status != IoStatus::Ok) break;
        if (result.count == 0) continue;
        if (!heard.bytes && source.AnnouncesPlaylist()) reader.ExpectPlaylist();
        heard.bytes = true;
        PcmQueue unheard;
        if (!reader.Feed(ByteView(room).first(result.count), unheard)) break;
        heard.sound = reader.HasFoundSound();
    }
    heard.problem = reader.Problem();
    if (reader.IsPlaylist() && reader.Playlist().size() <= LongestPlaylist) heard.playlist = reader.Playlist();
    return heard;
}

} // namespace quillon
