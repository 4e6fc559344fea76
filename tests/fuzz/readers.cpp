// Feeds libFuzzer's inputs to whatever reads bytes from outside, and checks what must hold for any bytes.
#include "FakePlayerSystem.h"
#include "Fakes.h"
#include "catalogue/FeedFile.h"
#include "geo/AirportPositions.h"
#include "geo/ReceptionRange.h"
#include "player/AddressProbe.h"
#include "player/AudioFrames.h"
#include "player/HttpStream.h"
#include "player/LocalEntry.h"
#include "player/PlainText.h"
#include "player/Playlists.h"
#include "player/SecureConnection.h"
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

    AirportPositions positions(airports);
    const GeoPoint* const airport = positions.Of(icao);
    const GeoPoint aircraft = GeoPoint::At(43.01, -79.01);
    const std::array<const GeoPoint*, 2> all{nullptr, airport};
    Require(NearestInRange(aircraft, all, 0).value_or(1) == 1, "no airport is nearest that is not known");
    const auto sight = airport ? Look(aircraft, *airport) : std::nullopt;
    if (!sight) return;
    Require(sight->metres >= 0 && sight->metres < 20'100'000,
            "no airport is farther than half around the Earth");
    Require(sight->bearing >= 0 && sight->bearing < 360, "a bearing is on the rose");
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

/// A record is what it is, its length, and as many bytes.
class Layer : public SecurityLayer {
  public:
    SilenceCause Fault() const override { return SilenceCause::CertificateInvalid; }
    Progress ShakeHands(std::vector<std::uint8_t>& received, std::string& unsent) override {
        if (received.empty()) unsent = RequestText({"h", 443, "/a"}, "1"); // at which FakeConnection answers
        std::vector<std::uint8_t> ignored;
        return received.empty() ? Progress::Step : Decrypt(received, ignored);
    }
    Progress Decrypt(std::vector<std::uint8_t>& received, std::vector<std::uint8_t>& data) override {
        if (received.size() < 2 || received.size() < received[1] + 2U) return Progress::Incomplete;
        constexpr Progress Kinds[] = {Progress::Done,      Progress::Done,     Progress::Done,
                                      Progress::Step,      Progress::Closed,   Progress::Failed,
                                      Progress::Untrusted, Progress::Handshake};
        const Progress kind = Kinds[received[0] % 8];
        const auto end = received.begin() + 2 + received[1];
        data.insert(data.end(), received.begin() + 2, end);
        received.erase(received.begin(), end);
        return kind;
    }
    std::size_t Encrypt(Bytes bytes, std::string&) override { return bytes.size(); }
};

void TlsRecords(Bytes bytes) {
    HoweverCut([&](std::size_t length) {
        World world;
        world.servers["/a"] = {std::string(bytes), IoStatus::EndOfStream, length};
        SecureConnection connection(std::make_unique<FakeConnection>(world, false, Reach::Public),
                                    std::make_unique<Layer>());
        std::string all, room(100, '\0');
        IoResult got{IoStatus::Ok};
        for (std::size_t calls = 0; got.status == IoStatus::Ok || got.status == IoStatus::Connecting; ++calls) {
            Require(calls < 4 * bytes.size() + 100, "a connection comes to its end");
            got = connection.Read(Raw(room));
            all.append(room, 0, got.count);
        }
        Require(connection.Read(Raw(room)).status == got.status, "and stays there");
        return std::pair(all, got.status);
    });
}

/// Requires of every connection that a public server stays the only one to lead anywhere.
class PublicSystem : public FakeSystem {
  public:
    using FakeSystem::FakeSystem;

    std::unique_ptr<Connection> Connect(const StreamAddress& address, Reach reach) override {
        Require(!connected_ || reach == Reach::Public, "a public server leads to no private one");
        Require(++tries_ < 10'000, "a walk comes to its end");
        connected_ = true;
        return FakeSystem::Connect(address, reach);
    }

  private:
    bool connected_ = false;
    int tries_ = 0;
};

/// What servers send for "/0", "/1" ... stands between bytes 1.
void Walk(Bytes bytes) {
    World world;
    for (int path = 0; path < 8; ++path) {
        const std::size_t end = std::min(bytes.find('\1'), bytes.size());
        world.servers["/" + std::to_string(path)] = {std::string(bytes.substr(0, end)), IoStatus::EndOfStream};
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    PublicSystem system(world);
    const FeedAnswer answer = AddressProbe("1", {}, system, false).Try("https://h/0");
    Require(IsText(answer.Words), "an answer is text");
    Require(!answer.Words.ends_with(": There is no such file"), "a server leads to no file");
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
        const auto file = ResolveEntry("C:\\lists\\list", entry);
        const bool opens = file && !RefusalOf(*file, "C:\\lists\\list", {});
        Require(!opens || ServerOfPath(*file).empty(), "a list leads to no server");
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

const std::pair<Bytes, void (*)(Bytes)> readers[] = {
    {"catalogue", Catalogue},
    {"settings", SettingsFile},
    {"airports", AirportFile},
    {"fsuipc", Replies},
    {"http", HttpAnswer},
    {"tls", TlsRecords},
    {"walk", Walk},
    {"icy", IcyStream},
    {"m3u", Playlist<M3uEntries>},
    {"pls", Playlist<PlsEntries>},
    {"asx", Playlist<AsxEntries>},
    {"wpl", Playlist<WplEntries>},
    {"xspf", Playlist<XspfEntries>},
    {"mp3", SoundFrames},
    {"aac", SoundFrames},
    {"wav", Wav},
};

} // namespace

/// Runs the reader that FUZZ_READER names.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::map<Bytes, void (*)(Bytes)> by_name(std::begin(readers), std::end(readers));
    by_name.at(std::getenv("FUZZ_READER"))({reinterpret_cast<const char*>(data), size});
    return 0;
}
