// One playing of one address, on a scripted server, a fake clock and a fake sound device.
#include "PlayerBytes.h"
#include "TempFolder.h"
#include "player/Session.h"

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <set>
#include <utility>

using namespace quillon;
using namespace std::chrono_literals;
using std::chrono::milliseconds;

namespace {

/// What a server sends for each path, and what it does then.
struct Script {
    std::string bytes;
    Supply then = Supply::NothingYet;
};

/// The world outside, its clock, and what was heard of it.
struct World {
    std::map<std::string, Script> servers; // by path
    bool has_codec = true;
    int devices = 100; // how many more can be opened
    milliseconds device_dies_at{1h};
    std::map<milliseconds, std::function<void(Session&)>> events;

    milliseconds now{0};
    std::string states; // the session's, each change
    std::string opened; // formats the device was opened with
    milliseconds heard{0};
    std::set<int> levels; // samples heard
    int requests = 0;
    Session* session = nullptr;
    std::function<bool()> audible = [] { return false; };
};

class FakeConnection : public Connection {
  public:
    explicit FakeConnection(World& world) : world_(world) {}

    Got Write(std::string_view bytes) override {
        if (!std::exchange(accepted_, true)) return {Supply::Connecting};
        const std::string path(bytes.substr(4, bytes.find(" HTTP") - 4));
        left_ = world_.servers[path];
        ++world_.requests;
        return {Supply::Bytes, bytes.size()};
    }
    Got Read(std::span<std::uint8_t> room) override {
        if (left_.bytes.empty()) return {left_.then};
        const std::size_t count = std::min({room.size(), left_.bytes.size(), std::size_t{1000}});
        std::copy_n(left_.bytes.begin(), count, room.begin());
        left_.bytes.erase(0, count);
        return {Supply::Bytes, count};
    }

  private:
    World& world_;
    Script left_;
    bool accepted_ = false;
};

/// Every sample of a frame comes out as 1000.
class FakeDecoder : public Mp3Decoder {
  public:
    bool Decode(ByteView frame, Samples& samples) override {
        const auto format = ParseMp3Header(frame);
        samples.insert(samples.end(), format->frame_samples * format->channels, std::int16_t{1000});
        return true;
    }
};

class FakeOutput : public SoundOutput {
  public:
    FakeOutput(World& world, PcmFormat format) : world_(world), format_(format) {
        world_.audible = [this] { return !held_ && !IsIdle(); };
    }
    ~FakeOutput() override {
        world_.heard -= Left();
        world_.audible = [] { return false; };
    }

    bool HasRoom() override { return Left() < 160ms; }
    bool IsIdle() override { return Left() == 0ms; }
    bool Write(const Samples& samples) override {
        const auto length = std::chrono::duration_cast<milliseconds>(Duration(format_, samples.size()));
        end_ = Now() + Left() + length;
        world_.heard += length;
        world_.levels.insert(samples.begin(), samples.end());
        return true;
    }
    void Hold(bool held) override {
        const milliseconds left = Left();
        held_ = held;
        if (held) held_left_ = left;
        end_ = world_.now + left;
    }

  private:
    milliseconds Now() const { return std::min(world_.now, world_.device_dies_at); }
    milliseconds Left() const { return held_ ? held_left_ : std::max(end_ - Now(), milliseconds(0)); }

    World& world_;
    PcmFormat format_;
    milliseconds end_{0};
    milliseconds held_left_{0};
    bool held_ = false;
};

class FakeSystem : public PlayerSystem {
  public:
    explicit FakeSystem(World& world) : world_(world) {}

    std::unique_ptr<Connection> Connect(const std::string& host, std::uint16_t) override {
        return host == "h" ? std::make_unique<FakeConnection>(world_) : nullptr;
    }
    std::unique_ptr<Mp3Decoder> OpenMp3Decoder(const Mp3Format&) override {
        return world_.has_codec ? std::make_unique<FakeDecoder>() : nullptr;
    }
    std::unique_ptr<SoundOutput> OpenOutput(const PcmFormat& format) override {
        if (world_.devices-- <= 0) return nullptr;
        world_.opened += std::to_string(format.sample_rate) + "/" + std::to_string(format.channels) + " ";
        return std::make_unique<FakeOutput>(world_, format);
    }
    milliseconds Now() override { return world_.now; }
    void Wait(milliseconds) override {
        const std::string state = std::to_string(world_.session->State()) + " ";
        if (!world_.states.ends_with(" " + state) && world_.states != state) world_.states += state;
        world_.now += 10ms;
        while (!world_.events.empty() && world_.events.begin()->first <= world_.now)
            world_.events.extract(world_.events.begin()).mapped()(*world_.session);
    }
    void Wake() override {}

  private:
    World& world_;
};

void RunSession(World& world, const std::string& url) {
    world.events[1min] = [](Session& session) { session.Cancel(); };
    Session session(url, "1.0", 100, std::make_unique<FakeSystem>(world));
    world.session = &session;
    session.Run();
    world.states += std::to_string(session.State());
}

const std::string Ok = "HTTP/1.0 200 OK\r\n\r\n";

TEST(Session, TellsHowAStreamFares) {
    const std::string ok_with_length =
        "ICY 200 OK\nContent-Length:" + std::to_string(Frames(100).size()) + "\n\n";
    struct Row {
        const char* name;
        Script script;
        const char* states;
        int heard_frames;
    };
    const Row rows[] = {
        {"plays, then stalls", {Ok + Frames(100)}, "9 3 6 10", 100},
        {"plays, then drops", {Ok + Frames(100), Supply::End}, "9 3 10", 100},
        {"plays, then is reset", {Ok + Frames(100), Supply::Failed}, "9 3 10", 100},
        {"a file of known length", {ok_with_length + Frames(150)}, "9 3 8 1", 100},
        {"a file cut short", {ok_with_length + Frames(50), Supply::End}, "9 3 10", 50},
        {"too little to start", {Ok + Frames(3)}, "9 6 10", 0},
        {"ends before the lead is full", {Ok + Frames(3), Supply::End}, "9 3 10", 3},
        {"no body", {Ok, Supply::End}, "9 10", 0},
        {"says nothing", {""}, "9 10", 0},
        {"closes at once", {"", Supply::End}, "9 10", 0},
        {"garbage in the middle",
         {Ok + Frames(50) + std::string(5000, 'x') + Frames(50), Supply::End},
         "9 3 10",
         100},
        {"no sound at all", {Ok + std::string(100000, 'x')}, "9 10", 0},
        {"web page", {"HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\n" + Frames(100)}, "9 10", 0},
        {"not found", {"HTTP/1.1 404 Not Found\r\n\r\n" + Frames(100)}, "9 10", 0},
        {"no reply at all", {Frames(100)}, "9 10", 0},
    };
    for (const Row& row : rows) {
        World world;
        world.servers["/a"] = row.script;
        RunSession(world, "http://h/a");
        EXPECT_EQ(world.states, row.states) << row.name;
        EXPECT_NEAR(static_cast<double>(world.heard.count()), row.heard_frames * 26.12, 60) << row.name;
    }
}

TEST(Session, FollowsEightRedirectsAndNoMore) {
    World world;
    world.servers["/a"] = {"HTTP/1.1 301 Moved\r\nLocation: /b\r\n\r\n"};
    world.servers["/b"] = {Ok + Frames(10), Supply::End};
    RunSession(world, "http://h/a");
    EXPECT_GT(world.heard, 200ms);

    World loop;
    loop.servers["/a"] = {"HTTP/1.1 302 Found\r\nLocation: a\r\n\r\n"};
    RunSession(loop, "http://h/a");
    EXPECT_EQ(loop.states, "9 10");
    EXPECT_EQ(loop.requests, 9);
}

TEST(Session, SaysSoWhenTheSystemCannotPlay) {
    const std::pair<const char*, std::function<void(World&)>> rows[] = {
        {"no codec", [](World& world) { world.has_codec = false; }},
        {"no device", [](World& world) { world.devices = 0; }},
        {"device dies", [](World& world) { world.device_dies_at = 500ms; }},
    };
    for (const auto& [name, spoil] : rows) {
        World world;
        world.servers["/a"] = {Ok + Frames(1000)};
        spoil(world);
        RunSession(world, "http://h/a");
        EXPECT_TRUE(world.states.ends_with("10")) << name << ": " << world.states;
        EXPECT_LT(world.now, 3s) << name;
    }
    for (const char* url : {"http://unknown/a", "https://h/a", "Z:\\no\\such.wav", "\xFF"}) {
        World world;
        RunSession(world, url);
        EXPECT_EQ(world.states, "10") << url;
    }
}

TEST(Session, OpensTheDeviceAnewForAnotherFormat) {
    World world;
    world.servers["/a"] = {Ok + Frames(20) + SlowFrames(20) + Frames(20), Supply::End};
    RunSession(world, "http://h/a");
    EXPECT_EQ(world.opened, "44100/2 22050/1 44100/2 ");
    EXPECT_NEAR(static_cast<double>(world.heard.count()), 60 * 26.12, 60);
}

TEST(Session, CancelledIsSilent) {
    World world;
    world.servers["/a"] = {Ok + Frames(1000)};
    world.events[1s] = [](Session& session) { session.Cancel(); };
    RunSession(world, "http://h/a");
    EXPECT_LE(world.heard, 1s);
    EXPECT_LE(world.now, 1100ms);
}

TEST(Session, ScalesItsSound) {
    World world;
    world.servers["/a"] = {Ok + Frames(100), Supply::End};
    world.events[500ms] = [](Session& session) { session.SetVolume(25); };
    world.events[1s] = [](Session& session) { session.SetVolume(0); };
    RunSession(world, "http://h/a");
    EXPECT_EQ(world.levels, (std::set<int>{0, 250, 1000}));
}

/// Pauses from 0.5 s to 5 s.
void AddPause(World& world) {
    world.events[500ms] = [](Session& session) { session.Pause(); };
    world.events[510ms] = [&world](Session&) { EXPECT_FALSE(world.audible()); };
    world.events[5s] = [](Session& session) { session.Resume(); };
    world.events[5100ms] = [&world](Session&) { EXPECT_TRUE(world.audible()); };
}

TEST(Session, AfterAPauseALiveStreamGoesOnAtThePresent) {
    World world;
    world.servers["/a"] = {Ok + Frames(400), Supply::NothingYet};
    AddPause(world);
    milliseconds heard_in_pause{0};
    world.events[600ms] = [&](Session&) { heard_in_pause = world.heard; };
    world.events[4s] = [&](Session&) { EXPECT_EQ(world.heard, heard_in_pause); };
    RunSession(world, "http://h/a");
    // Of ten seconds all were read in the pause, and the last two kept.
    EXPECT_LE(heard_in_pause, 500ms);
    EXPECT_NEAR(static_cast<double>((world.heard - heard_in_pause).count()), 2000, 60);
}

using SessionOnFiles = TempFolder;

TEST_F(SessionOnFiles, PlayToTheirEndAndKeepTheirPlaceInAPause) {
    const std::string second(16000, '\1');
    Write("a.wav", Riff(FormatChunk(1, 1, 8000, 16) + Chunk("data", second + second)));
    Write("b.mp3", Frames(77));
    Write("empty.wav", "");
    for (const char* name : {"a.wav", "b.mp3"}) {
        World world;
        AddPause(world);
        RunSession(world, At(name));
        EXPECT_TRUE(world.states.ends_with("3 8 1")) << name << ": " << world.states;
        EXPECT_NEAR(static_cast<double>(world.heard.count()), 2000, 60) << name;
        EXPECT_GT(world.now, 6s) << name;
    }
    World empty;
    RunSession(empty, At("empty.wav"));
    EXPECT_EQ(empty.states, "10");
}

} // namespace
