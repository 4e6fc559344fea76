// Feeds libFuzzer's inputs to whatever reads bytes from outside, and checks what must hold for any bytes.
#include "FakePlayerSystem.h"
#include "Fakes.h"
#include "app/StartVolume.h"
#include "catalogue/FeedFile.h"
#include "geo/ReceptionRange.h"
#include "player/AudioFrames.h"
#include "player/HttpStream.h"
#include "player/PlainText.h"
#include "player/Playlists.h"
#include "ports/TextFile.h"
#include "runtime/Files.h"
#include "runtime/Number.h"
#include "runtime/Text.h"
#include "settings/Settings.h"
#include "simlink/RequestArea.h"

#include <cstdio>
#include <cstdlib>
#include <tuple>

using namespace quillon;

namespace {

using Bytes = std::string_view;

void Require(bool holds, const char* rule) {
    if (holds) return;
    std::fprintf(stderr, "Not so: %s\n", rule);
    std::abort();
}

std::span<std::uint8_t> Raw(std::string& bytes) {
    return {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()};
}

bool IsText(Bytes text) {
    return IsUtf8(text) && std::none_of(text.begin(), text.end(), [](char c) { return c >= 0 && c < ' '; });
}

std::vector<std::string> Cut(Bytes bytes, std::size_t length) {
    std::vector<std::string> pieces;
    for (std::size_t at = 0; at < bytes.size(); at += length) pieces.emplace_back(bytes.substr(at, length));
    return pieces;
}

/// The result of `read`, which must not depend on the size of the pieces in which the bytes arrive.
template <typename Read>
auto HoweverCut(Read read) {
    const auto whole = read(std::size_t{1} << 20U);
    Require(read(1) == whole && read(7) == whole && read(64) == whole, "the pieces make no difference");
    return whole;
}

void Catalogue(Bytes bytes) {
    FakeCodePage page;
    ReplaceFile(CatalogueName, bytes);
    const std::string text = ReadText(CatalogueName, page);
    Bytes rest = text;
    while (const auto line = TakeLine(rest)) {
        if (!IsFeedLine(*line) || std::count(line->begin(), line->end(), '|') < 3) continue;
        const FeedLine row = SplitFeedLine(*line);
        Require(
            std::string(row.ICAO).append("|").append(row.City).append("|").append(row.URL).append("|").append(
                row.Freq) == *line,
            "the fields are the line");
    }
    AppendLines(CatalogueName, {"K\xC3\xBC|new"}, page);
    const std::string longer = ReadText(CatalogueName, page);
    Require(longer.starts_with(text), "adding a line keeps what was there");
    Require(text.empty() || longer.ends_with("\nK\xC3\xBC|new\r\n"), "and begins a new line");
}

void SettingsFile(Bytes bytes) {
    const SettingsValues values = ParseSettings(bytes);
    Require(ParseSettings(SettingsText(values)) == values, "what is written reads back");
}

void AirportFile(Bytes bytes) {
    std::string step, message, latitude = "43.01", longitude = "-79.01";
    FakePrompts prompts;
    ErrorTrap trap(step, message, prompts.AsReport());
    const AirportList airports({"heading", std::string(bytes)});
    const std::string icao(bytes.substr(0, bytes.find(',')));
    std::int32_t search_start = 1;
    const RangeReading read =
        ReceptionRange(airports, trap).CalcDistance({icao, search_start}, {latitude, longitude}, 50);
    const std::int32_t miles = read.nautical_miles;
    Require(miles >= 0 && miles <= 10830, "no airport is farther than half around the Earth");
    Require(read.in_range == (miles <= 50) || !read.in_range, "what is in range is near");
}

/// The bytes are the reply to a round of requests.
void Replies(Bytes bytes) {
    std::string shared(RequestArea::Length, '\0'), reply(bytes);
    RequestArea area;
    area.Attach(Raw(shared).data());
    std::array<std::string, 5> destinations{"....", "....", "..", "", "...................."};
    for (std::string& destination : destinations)
        area.QueueRead(0x3304, static_cast<std::uint32_t>(destination.size()), destination.data());
    area.QueueWrite(0x0560, 4, "word");
    area.QueueRead(0x0560, 4, nullptr);
    DeliverReplies(area.Seal(), Raw(reply));
    std::size_t at = 0;
    for (const std::string& got : destinations) {
        at = std::min(at + 16, bytes.size());
        const bool kept = got.find_first_not_of('.') == got.npos;
        Require(kept || got == bytes.substr(at, got.size()), "bytes stay in their place");
        at += got.size();
    }
}

void HttpAnswer(Bytes bytes) {
    const auto [address, ending, title, body] = HoweverCut([&](std::size_t length) {
        World world;
        world.servers["/a"] = {std::string(bytes), IoStatus::EndOfStream, length};
        FakeSystem system(world);
        HttpStream stream({"h", 80, "/a"}, "1", system);
        std::string all, room(700, '\0');
        IoResult got = stream.Read(Raw(room)); // has not connected yet
        while ((got = stream.Read(Raw(room))).status == IoStatus::Ok) all.append(room, 0, got.count);
        return std::tuple(stream.Address(), got.status, stream.Title(), all);
    });
    const auto parsed = ParseAddress(address);
    Require(parsed && AddressText(*parsed) == address, "a redirect leads to an address");
    const std::string request = RequestText(*parsed, "1");
    Require(std::count(request.begin(), request.end(), '\n') == 7, "which adds no line to a request");
    Require(body.size() <= bytes.size(), "a body is no longer than the reply");
}

/// The first byte is the interval of the metadata.
void IcyStream(Bytes bytes) {
    if (bytes.empty()) return;
    std::string stream(bytes.substr(1));
    const std::size_t interval = static_cast<unsigned char>(bytes[0]) + 1U;
    const auto [kept, title] = HoweverCut([&](std::size_t length) {
        IcyDemuxer demuxer(interval);
        std::string all;
        for (std::string& piece : Cut(stream, length)) all.append(piece, 0, demuxer.Strip(Raw(piece)));
        return std::pair(all, demuxer.Title());
    });
    std::string sound;
    for (std::size_t at = 0; at < stream.size();) {
        sound.append(stream, at, interval);
        at += interval;
        if (at < stream.size()) at += 1 + Raw(stream)[at] * std::size_t{16};
    }
    Require(kept == sound, "everything but the metadata is sound");
    Require(IsText(title), "a title is text");
}

template <Entries (*Read)(Bytes)>
void Playlist(Bytes bytes) {
    Entries entries = Read(PlainText(bytes));
    for (std::string& entry : ReadPlaylist(bytes, "C:\\list")) entries.push_back(std::move(entry));
    for (const std::string& entry : entries) {
        Require(!entry.empty() && IsText(entry), "an entry is text");
        ResolveEntry("C:\\lists\\list", entry);
        const auto address = ResolveEntry("http://h/lists/list", entry);
        Require(!address || ParseAddress(*address), "a list from the network leads nowhere else");
    }
}

void SoundFrames(Bytes bytes) {
    HoweverCut([&](std::size_t length) {
        AudioFrames scan;
        std::string all;
        for (std::string& piece : Cut(bytes, length)) {
            scan.Feed(Raw(piece));
            while (const auto frame = scan.Next()) all.append(frame->bytes.begin(), frame->bytes.end());
        }
        Require(all.size() + scan.Skipped() <= bytes.size(), "frames and what is skipped are in the input");
        return std::pair(all, scan.Skipped());
    });
}

void Wav(Bytes bytes) {
    HoweverCut([&](std::size_t length) {
        WavFile file;
        Samples all;
        bool good = true;
        for (std::string& piece : Cut(bytes, length)) good = good && file.Feed(Raw(piece), all);
        Require(all.size() <= bytes.size(), "there are no more samples than bytes");
        return std::tuple(good, file.Format(), all);
    });
}

void CommandLine(Bytes bytes) {
    const auto volume = StartVolume(std::string(bytes));
    Require(!volume || (*volume >= 0 && *volume <= 101), "a volume is in its range");
}

const std::pair<Bytes, void (*)(Bytes)> readers[] = {
    {"catalogue", Catalogue},
    {"settings", SettingsFile},
    {"airports", AirportFile},
    {"fsuipc", Replies},
    {"http", HttpAnswer},
    {"icy", IcyStream},
    {"m3u", Playlist<M3uEntries>},
    {"pls", Playlist<PlsEntries>},
    {"asx", Playlist<AsxEntries>},
    {"wpl", Playlist<WplEntries>},
    {"xspf", Playlist<XspfEntries>},
    {"mp3", SoundFrames},
    {"aac", SoundFrames},
    {"wav", Wav},
    {"command-line", CommandLine},
};

} // namespace

/// Runs the reader that FUZZ_READER names.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::map<Bytes, void (*)(Bytes)> by_name(std::begin(readers), std::end(readers));
    by_name.at(std::getenv("FUZZ_READER"))({reinterpret_cast<const char*>(data), size});
    return 0;
}
