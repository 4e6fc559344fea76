#include "player/AddressProbe.h"

#include "player/FileSource.h"
#include "player/SoundReader.h"
#include "runtime/Files.h"
#include "state/FeedMarkers.h"

#include <array>

namespace quillon {

using namespace std::chrono_literals;

namespace {

constexpr auto LongestSleep = 100ms;
constexpr int DeepestPlaylist = 3;
constexpr std::size_t MostEntries = 5; // of a playlist are tried

FeedAnswer Failure(const std::string& words) {
    return {Finding::Fails, words};
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

/// Why a stream gave no sound.
std::string Reason(const HttpStream& stream, Supply last, bool bytes) {
    const bool in_time = last != Supply::NothingYet;
    const bool answered = stream.Reached() == HttpStream::Stage::Answered;
    if (answered && stream.Status() != 200) return StatusWords(stream.Status());
    if (last == Supply::Refused) return "No valid certificate of the server";
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
    if (last == Supply::NotAudio) return "A web page instead of sound";
    return bytes ? "Nothing that Quillon can play" : "It answers, but sends nothing";
}

} // namespace

FeedAnswer AddressProbe::Try(const std::string& url) {
    if (url.empty()) return Failure("The line has no address");
    if (StreamMarker(url) > 0 || PlaylistMarker(url) > 0) return TryPlayable(url, 0);
    if (IsStreamAddress(url)) return Failure("Must begin with http:// or https://");
    return TryFolder(url);
}

FeedAnswer AddressProbe::TryPlayable(const std::string& url, int depth) {
    return IsStreamAddress(url) ? TryStream(url, depth) : TryFile(url, depth);
}

FeedAnswer AddressProbe::TryFile(const std::string& path, int depth) {
    if (!FileExists(path)) return Failure("There is no such file");
    FileSource file(path);
    const Heard heard = Listen(file);
    if (heard.Playlist) return TryEntries(*heard.Playlist, path, depth);
    return heard.Sound ? FeedAnswer{Finding::Answers, "Plays"} : Failure("Nothing that Quillon can play");
}

FeedAnswer AddressProbe::TryStream(const std::string& url, int depth) {
    const auto parsed = ParseAddress(url);
    if (!parsed) return Failure("This is no address of a server");
    HttpStream stream(*parsed, user_agent_, system_);
    const Heard heard = Listen(stream);
    FeedAnswer answer = heard.Playlist ? TryEntries(*heard.Playlist, stream.Address(), depth)
                        : heard.Sound  ? FeedAnswer{Finding::Answers, "Plays"}
                                       : Failure(Reason(stream, heard.Last, heard.Bytes));
    if (stream.Address() == AddressText(*parsed)) return answer;
    if (answer.Kind == Finding::Answers) return {Finding::Redirects, "Redirected to " + stream.Address()};
    answer.Words += ", redirected to " + stream.Address();
    return answer;
}

/// The first entry that leads to sound; a redirect on the way is the playlist's own business.
FeedAnswer AddressProbe::TryEntries(const std::string& playlist, const std::string& from, int depth) {
    Entries entries = ReadPlaylist(playlist, from);
    if (entries.empty()) return Failure("The playlist is empty");
    if (depth >= DeepestPlaylist) return Failure("Playlists within playlists, too deep");
    entries.resize(std::min(entries.size(), MostEntries));
    std::string words;
    for (const std::string& entry : entries) {
        if (cancelled_) break;
        const auto address = ResolveEntry(from, entry);
        const FeedAnswer answer =
            address ? TryPlayable(*address, depth + 1) : Failure("Quillon cannot play that");
        if (answer.Kind != Finding::Fails) return {Finding::Answers, "Playlist of " + *address + ": Plays"};
        if (words.empty()) words = address.value_or(entry) + ": " + answer.Words;
    }
    return Failure("Playlist of " + words);
}

AddressProbe::Heard AddressProbe::Listen(ByteSource& source) {
    SoundReader reader(system_);
    std::array<std::uint8_t, 4096> room{};
    Heard heard;
    const auto deadline = system_.Now() + LongestWait;
    while (!cancelled_ && !heard.Sound && system_.Now() < deadline) {
        const Got got = source.Read(room);
        heard.Last = got.supply == Supply::Connecting ? Supply::NothingYet : got.supply;
        if (heard.Last == Supply::NothingYet) {
            system_.Wait(LongestSleep);
            continue;
        }
        if (got.supply != Supply::Bytes) break;
        if (got.count == 0) continue;
        if (!heard.Bytes && source.AnnouncesPlaylist()) reader.ExpectPlaylist();
        heard.Bytes = true;
        PcmQueue unheard;
        if (!reader.Feed(ByteView(room).first(got.count), unheard)) break;
        heard.Sound = reader.HasFoundSound();
    }
    if (reader.IsPlaylist() && reader.Playlist().size() <= LongestPlaylist) heard.Playlist = reader.Playlist();
    return heard;
}

} // namespace quillon
