// A session on a scripted server, a fake clock and a fake sound device.
#include "FakePlayerSystem.h"
#include "TempFolder.h"

#include <gtest/gtest.h>

using namespace quillon;

namespace {

/// Runs a session until the world says so, by default to the end of its first try, and for 20 minutes at most.
void RunSession(World& world, const std::string& url) {
    if (!world.over) world.over = [](const World& w) { return w.session->IsWaiting(); };
    world.events.emplace(20min, [](Session& session) { session.Cancel(); });
    world.session = std::make_shared<Session>(url, "1.0", FileServers{"nas"}, 100,
                                              std::make_unique<FakeSystem>(world), world.retries);
    world.session->Run();
    world.states += std::to_string(world.session->State());
}

std::function<bool(const World&)> After(milliseconds end) {
    return [end](const World& world) { return world.now >= end; };
}

TEST(Session, ShowsStatesAndPlaysWhatComes) {
    const std::string ok_with_length =
        "ICY 200 OK\nContent-Length:" + std::to_string(Frames(100).size()) + "\n\n";
    const std::tuple<const char*, Script, const char*, int> rows[] = {
        {"plays, then stalls", {Ok + Frames(100)}, "9 3 6 9 1", 100},
        {"plays, then drops", {Ok + Frames(100), IoStatus::EndOfStream}, "9 3 9 1", 100},
        {"plays, then is reset", {Ok + Frames(100), IoStatus::Failed}, "9 3 9 1", 100},
        {"a file of known length", {ok_with_length + Frames(150)}, "9 3 8 1", 100},
        {"a file cut short", {ok_with_length + Frames(50), IoStatus::EndOfStream}, "9 3 9 1", 50},
        {"too little to start", {Ok + Frames(3)}, "9 6 9 1", 0},
        {"ends before the lead is full", {Ok + Frames(3), IoStatus::EndOfStream}, "9 3 9 1", 3},
        {"drips", {.bytes = Ok + Frames(100), .between_bytes = 400ms}, "9 6 9 1", 0},
        {"no body", {Ok, IoStatus::EndOfStream}, "9 1", 0},
        {"says nothing", {""}, "9 1", 0},
        {"closes at once", {"", IoStatus::EndOfStream}, "9 1", 0},
        {"garbage in the middle",
         {Ok + Frames(50) + std::string(5000, 'x') + Frames(50), IoStatus::EndOfStream},
         "9 3 9 1",
         100},
        {"a chunk", // of 41700 bytes
         {"HTTP/1.1 200 OK\r\nTransfer-Encoding:Chunked\r\n\r\nA2E4\r\n" + Frames(100) + "\r\n0\r\n\r\n"},
         "9 3 9 1",
         100},
        {"not found", {"HTTP/1.1 404 Not Found\r\n\r\n" + Frames(100)}, "9 1", 0},
        {"no reply at all", {Frames(100)}, "9 1", 0},
    };
    for (const auto& [name, script, states, heard_frames] : rows) {
        World world;
        world.servers["/a"] = script;
        RunSession(world, "http://h/a");
        EXPECT_EQ(world.states, states) << name;
        EXPECT_NEAR(static_cast<double>(world.heard.count()), heard_frames * 26.12, 60) << name;
    }
}

TEST(Session, FollowsEightRedirectsInCirclesAndNoMore) {
    World loop;
    loop.servers["/a"] = {"HTTP/1.1 302 Found\r\nLocation: a\r\n\r\n"};
    RunSession(loop, "http://h/a");
    EXPECT_EQ(loop.states, "9 1");
    EXPECT_EQ(loop.asked.size(), 9U);
}

TEST(Session, TellsTheTitleOfAStream) {
    World world;
    world.servers["/a"] = {"HTTP/1.0 200 OK\r\nicy-metaint: 16680\r\n\r\n" + Frames(40) +
                           "\2StreamTitle='KJFK Tower';" + std::string(8, '\0') + Frames(40)};
    world.events.emplace(1s, [](Session& session) { EXPECT_EQ(session.Title(), "KJFK Tower"); });
    RunSession(world, "http://h/a");
}

TEST(Session, OpensTheDeviceAnewForAnotherFormat) {
    World world;
    world.servers["/a"] = {Ok + Frames(20) + SlowFrames(20) + Frames(20), IoStatus::EndOfStream};
    RunSession(world, "http://h/a");
    EXPECT_EQ(world.opened, "44100/2 22050/1 44100/2 ");
    EXPECT_NEAR(static_cast<double>(world.heard.count()), 60 * 26.12, 60);
}

/// Pauses from 0.5 s to 5 s.
void AddPause(World& world) {
    world.events.emplace(500ms, [](Session& session) { session.Pause(SmoothSound::Ramp); });
    world.events.emplace(510ms, [&world](Session&) { EXPECT_FALSE(world.audible()); });
    world.events.emplace(5s, [](Session& session) { session.Resume(); });
    world.events.emplace(5100ms, [&world](Session&) { EXPECT_TRUE(world.audible()); });
}

TEST(Session, ALiveStreamResumesAtThePresent) {
    World world;
    world.servers["/a"] = {Ok + Frames(400), IoStatus::WouldBlock};
    AddPause(world);
    milliseconds heard_in_pause{0};
    world.events.emplace(600ms, [&](Session&) { heard_in_pause = world.heard; });
    world.events.emplace(4s, [&](Session&) { EXPECT_EQ(world.heard, heard_in_pause); });
    RunSession(world, "http://h/a");
    // Of ten seconds all were read in the pause, and the last two kept.
    EXPECT_LE(heard_in_pause, 500ms);
    EXPECT_NEAR(static_cast<double>((world.heard - heard_in_pause).count()), 2000, 60);
}

TEST(Session, APausedFileWithoutALengthIsNotDownloaded) {
    World world;
    world.servers["/a"] = {Ok + Frames(4000)};
    world.events.emplace(1s, [](Session& session) { session.Pause(SmoothSound::Ramp); });
    world.events.emplace(2s, [&](Session&) { EXPECT_GT(world.sent, 512 * 1024U) << "may still be live"; });
    world.over = After(50s);
    RunSession(world, "http://h/a");
    EXPECT_NEAR(static_cast<double>(world.sent), 512 * 1024 + 48 * 16000, 40000);
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

TEST(Session, AsksAgainFromTheFirstAddressAfterGrowingWaits) {
    World world;
    world.servers["/a"] = {"HTTP/1.1 302 Found\r\nLocation: /b\r\n\r\n"};
    world.servers["/b"] = {"HTTP/1.1 404 Not Found\r\n\r\n"};
    world.events.emplace(12s, [&](Session&) {
        world.servers["/b"] = {Ok + Frames(1200), IoStatus::EndOfStream};
    });
    world.over = After(52s);
    RunSession(world, "http://h/a");
    EXPECT_EQ(world.states, "9 3 9 3 1") << "31 s of sound, a short wait, and sound again";
    EXPECT_EQ(world.asked.size(), 12U);
    const auto last = world.asked.back().first - world.asked[world.asked.size() - 3].first;
    EXPECT_NEAR(static_cast<double>(last.count()), 31300 + 1000, 300);
    EXPECT_EQ(world.asked[world.asked.size() - 2].second, "/a");
}

TEST(Session, GivesUpOnlyWithReason) {
    const std::tuple<const char*, Script, std::size_t> rows[] = {
        {"unauthorised", {"HTTP/1.0 401 No\r\n\r\n"}, 1},
        {"gone", {"HTTP/1.0 410 Gone\r\n\r\n"}, 1},
        {"not who it should be", {"", IoStatus::Refused}, 1},
        {"web page", {"HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\n<html>"}, 3},
        {"unannounced web page", {Ok + "<!DOCTYPE html><p>Hello", IoStatus::EndOfStream}, 3},
        {"noise", {Ok + std::string(9000, 'x'), IoStatus::EndOfStream}, 3},
        {"empty playlist",
         {"HTTP/1.0 200 OK\r\nContent-Type: audio/x-scpls\r\n\r\n[playlist]\n", IoStatus::EndOfStream},
         3},
        {"endless playlist", {Ok + "#EXTM3U\n" + std::string(300000, 'x')}, 3},
    };
    for (const auto& [name, script, asked] : rows) {
        World world;
        world.servers["/a"] = script;
        world.over = After(10min);
        RunSession(world, "http://h/a");
        EXPECT_TRUE(world.states == "9 10" || world.states == "9 6 9 6 9 6 10") << name << ": " << world.states;
        EXPECT_EQ(world.asked.size(), asked) << name;
        EXPECT_LT(world.now, 1min) << name;
        EXPECT_GT(world.retries->NotBefore("http://h/a"), world.now) << name;
    }
}

TEST(Session, BeginsWithShortWaitsWhateverAnotherOneMet) {
    World world;
    world.servers["/a"] = {"HTTP/1.1 404 Not Found\r\n\r\n"};
    world.over = After(20s);
    RunSession(world, "http://h/a");
    world.over = After(23s);
    const std::size_t before = world.asked.size();
    RunSession(world, "http://h/a");
    EXPECT_GE(world.asked.size(), before + 2);
}

TEST(Session, CancelledInACoolDownDoesNotProlongIt) {
    World world;
    world.retries->GiveUp("http://h/a", 0s);
    world.over = After(5s);
    RunSession(world, "http://h/a");
    EXPECT_EQ(world.retries->NotBefore("http://h/a"), 60s);
    EXPECT_TRUE(world.asked.empty());
}

TEST(Session, MovesToAnotherDeviceWhenItsOwnFails) {
    // The fault from 1 s on, when devices are good again, states, devices opened, longest silence.
    const std::tuple<Fault, milliseconds, const char*, int, milliseconds> rows[] = {
        {Fault::Stuck, 1s, "9 6 3 1", 2, 2200ms},
        {Fault::Refuses, 1s, "9 6 3 1", 2, 300ms},
        {Fault::Swallows, 1s, "9 6 3 6 3 1", 2, 1s},
        {Fault::Stuck, 8s, "9 6 3 10 9 6 3 1", 3, 9500ms},
        {Fault::Refuses, 8s, "9 6 3 10 9 6 10 9 6 3 1", 5, 10500ms},
        {Fault::Swallows, 8s, "9 6 3 6 10 9 6 3 1", 4, 9500ms},
    };
    for (const auto& [fault, until, states, opened, silence] : rows) {
        World world;
        world.servers["/a"] = {Ok, IoStatus::Ok};
        world.fault = fault;
        world.fault_from = 1s;
        world.fault_until = until;
        world.over = After(15s);
        RunSession(world, "http://h/a");
        EXPECT_EQ(world.states, states) << static_cast<int>(fault);
        EXPECT_EQ(100 - world.devices, opened) << static_cast<int>(fault);
        EXPECT_GE(world.heard, 15s - silence) << static_cast<int>(fault);
    }
}

TEST(Session, DisconnectsALongPausedStreamAndReconnects) {
    for (const IoStatus then : {IoStatus::Ok, IoStatus::Failed, IoStatus::WouldBlock}) {
        World world;
        world.servers["/a"] = {Ok + Frames(200), then};
        world.events.emplace(1s, [](Session& session) { session.Pause(SmoothSound::Ramp); });
        world.events.emplace(5min, [&](Session& session) {
            EXPECT_EQ(world.asked.size(), 1U);
            EXPECT_TRUE(session.IsWaiting());
            session.Resume();
        });
        world.over = After(5min + 1s);
        RunSession(world, "http://h/a");
        EXPECT_EQ(world.asked.size(), 2U);
        EXPECT_TRUE(world.states.ends_with("9 3 1")) << world.states;
    }
}

TEST(Session, FollowsPlaylistsInOrderAndThreeDeep) {
    const std::string pls = "HTTP/1.0 200 OK\r\nContent-Type: audio/x-scpls\r\n\r\n";
    World world;
    world.servers["/a/1.m3u"] = {Ok + "#EXTM3U\nmissing\nmms://h/x\nC:\\x.mp3\n2.asx\nnever\n",
                                 IoStatus::EndOfStream};
    world.servers["/a/2.asx"] = {Ok + "<asx><ref href='/b/3'/></asx>"}; // and never closes
    world.servers["/b/3"] = {pls + "[playlist]\nFile1=live\n", IoStatus::EndOfStream};
    world.servers["/b/live"] = {Ok + Frames(100), IoStatus::EndOfStream};
    world.servers["/a/missing"] = {"HTTP/1.0 404 No\r\n\r\n"};
    RunSession(world, "http://h/a/1.m3u");
    EXPECT_EQ(Asked(world), "/a/1.m3u /a/missing /a/2.asx /b/3 /b/live ");
    EXPECT_NEAR(static_cast<double>(world.heard.count()), 2612, 60);

    World deeper = World();
    deeper.servers = world.servers;
    deeper.servers["/0.m3u"] = {Ok + "a/1.m3u\n", IoStatus::EndOfStream};
    RunSession(deeper, "http://h/0.m3u");
    EXPECT_EQ(Asked(deeper), "/0.m3u /a/1.m3u /a/missing /a/2.asx /b/3 /a/never ");

    World loop;
    std::string lines;
    for (int line = 0; line < 1000; ++line) lines += "loop.m3u\n";
    loop.servers["/loop.m3u"] = {Ok + lines, IoStatus::EndOfStream};
    RunSession(loop, "http://h/loop.m3u");
    EXPECT_LE(loop.asked.size(), 100U) << "a playlist full of itself";
}

} // namespace
