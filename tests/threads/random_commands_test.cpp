// The player under random commands, its sessions on threads of their own; run under the thread sanitizer.
#include "FakePlayerSystem.h"
#include "player/SessionPlayer.h"

#include <gtest/gtest.h>
#include <random>
#include <thread>

using namespace quillon;

namespace {

struct OwnWorld {
    World world;
};

/// A world of its own for each session, whose time runs fifty times as fast as ours.
class ThreadSystem : private OwnWorld, public FakeSystem {
  public:
    ThreadSystem() : FakeSystem(world) {
        world.servers = {{"/live", {Ok, IoStatus::Ok}},
                         {"/drops", {Ok + Frames(100), IoStatus::EndOfStream}},
                         {"/list", {Ok + "#EXTM3U\nnone\ndrops\n", IoStatus::EndOfStream}},
                         {"/none", {"HTTP/1.0 404 x\r\n\r\n"}},
                         {"/gone", {"HTTP/1.0 410 x\r\n\r\n"}}};
        world.now = Now();
    }
    milliseconds Now() override {
        using namespace std::chrono;
        return duration_cast<milliseconds>(steady_clock::now().time_since_epoch() * 50);
    }
    void Wait(milliseconds) override {
        std::this_thread::sleep_for(100us);
        world.now = Now();
    }
};

constexpr const char* Urls[] = {"http://h/live", "http://h/drops", "http://h/list", "http://h/none",
                                "http://h/gone", "http://none/",   "none.wav",      ""};

TEST(RandomCommands, FindTheSessionsInOrder) {
    std::vector<std::pair<std::thread, std::shared_ptr<Session>>> sessions;
    SessionPlayer player(
        "1.0", [] { return std::make_unique<ThreadSystem>(); },
        [&](std::shared_ptr<Session> session) {
            sessions.emplace_back([session] { session->Run(); }, session);
        });
    std::minstd_rand random(19);
    const auto pick = [&random](unsigned below) { return static_cast<unsigned>(random() % below); };
    const std::function<void()> commands[] = {
        [&] { player.SetUrl(Urls[pick(std::size(Urls))]); },
        [&] { player.Play(); },
        [&] { player.Pause(); },
        [&] { player.FadeOut(); },
        [&] { player.Stop(); },
        [&] { player.Reload(); },
        [&] { player.SetVolume(static_cast<int>(pick(120))); },
        [&] { player.SetUserAgent("agent"); },
    };
    std::set<PlayState> states;
    for (int command = 0; command < 4000; ++command) {
        commands[pick(std::size(commands))]();
        for (unsigned look = pick(4); look > 0; --look) {
            states.insert(player.State());
            WordsOf(player.Condition());
            player.Title();
            std::this_thread::sleep_for(100us);
        }
    }
    player.SetUrl("");
    for (auto& [thread, session] : sessions) {
        thread.join();
        EXPECT_TRUE(session->HasEnded());
    }
    for (const PlayState state : {Stopped, Paused, Playing, Buffering, Transitioning, Ready})
        EXPECT_TRUE(states.contains(state)) << state;
}

} // namespace
