// The player under the program's cycles, which keep setting and playing the same address.
#include "FakePlayerSystem.h"
#include "Fakes.h"
#include "player/TwoPlayers.h"

#include <deque>
#include <gtest/gtest.h>

using namespace quillon;

namespace {

/// A player whose sessions run one after another on the world's clock.
class PlayerInWorld {
  public:
    World world;
    SessionPlayer player{"1.0", [this] { return std::make_unique<FakeSystem>(world); },
                         [this](std::shared_ptr<Session> session) { sessions_.push_back(std::move(session)); }};

    /// Schedules what the player is told.
    void At(milliseconds when, std::function<void()> told) {
        world.events.emplace(when, [told = std::move(told)](Session&) { told(); });
    }

    /// Tells the player the same every second from `from` to `to`.
    void EverySecond(milliseconds from, milliseconds to, const std::function<void()>& told) {
        for (; from <= to; from += 1s) At(from, told);
    }

    /// Runs the sessions until then.
    void RunTo(milliseconds end) {
        At(end, [this] { player.Stop(); });
        while (world.now < end) {
            std::shared_ptr<Session> session = sessions_.empty() ? idle_ : sessions_.front();
            if (!sessions_.empty()) sessions_.pop_front();
            world.session = session;
            if (session == idle_)
                FakeSystem(world).Wait(10ms);
            else
                session->Run();
        }
    }

    std::size_t Asked() const { return world.asked.size(); }

  private:
    std::deque<std::shared_ptr<Session>> sessions_;
    std::shared_ptr<Session> idle_ =
        std::make_shared<Session>("", "", FileServers(), 0, std::make_unique<FakeSystem>(world), world.retries);
};

constexpr const char* Url = "http://h/a";
const Script NotFound{"HTTP/1.0 404 Not Found\r\n\r\n"};
const Script Unauthorised{"HTTP/1.0 401 Unauthorized\r\n\r\n"};

/// The control of another system, which the tests look into.
class FakeControl : public FakePlayer {
  public:
    explicit FakeControl(FakeControl*& made) { made = this; }

    void SetUrl(const std::string& new_url) override {
        FakePlayer::SetUrl(new_url);
        if (!url.empty()) state = Transitioning;
    }
    void Play() override {
        if (state != Transitioning) FakePlayer::Play();
    }
};

/// Both players, on a server that sends Windows Media audio in every way that it comes.
class BothPlayers : public PlayerInWorld {
  public:
    BothPlayers() {
        world.servers["/wma"] = {Ok + "\x30\x26\xB2\x75\x8E\x66\xCF\x11"};
        world.servers["/list"] = {Ok + "<asx><ref href='none'/><ref href='mms://h/x'/></asx>",
                                  IoStatus::EndOfStream};
        world.servers["/moved"] = {"HTTP/1.0 302 x\r\nLocation: rtsp://h/x\r\n\r\n"};
        world.servers["/none"] = NotFound;
        world.servers["/aac"] = {Ok + AacFrames(9)};
        world.servers["/a"] = {Ok, IoStatus::Ok};
        world.has_codec = false;
    }

    FakeControl* control = nullptr; // once it has been made
    int made = 0;
    bool answers = true;
    TwoPlayers both{player, [this]() -> std::unique_ptr<FeedPlayer> {
                        ++made;
                        if (!answers) return nullptr;
                        return std::make_unique<FakeControl>(control);
                    }};
};

/// What the cycle of the automatic mode does with one feed.
std::function<void()> Cycle(PlayerInWorld& in) {
    return [&in] {
        if (in.player.State() == Ready) {
            in.player.SetUrl("");
            in.player.Stop();
            EXPECT_EQ(in.player.State(), Stopped);
            in.player.SetUrl(Url);
        } else {
            in.player.Play();
        }
    };
}

TEST(Player, RequestsAGivenUpAddressOnceAMinuteAtMost) {
    const std::pair<const char*, std::function<void(PlayerInWorld&)>> rows[] = {
        {"cycle", [](PlayerInWorld& in) { Cycle(in)(); }},
        {"play", [](PlayerInWorld& in) { in.player.Play(); }},
        {"set", [](PlayerInWorld& in) { in.player.SetUrl(Url); }},
        {"other between",
         [](PlayerInWorld& in) {
             in.player.SetUrl("http://unknown/");
             in.player.SetUrl(Url);
         }},
        {"stop and play",
         [](PlayerInWorld& in) {
             in.player.Stop();
             in.player.Play();
         }},
        {"pause and play",
         [](PlayerInWorld& in) {
             in.player.Pause();
             in.player.Play();
         }},
    };
    for (const auto& [name, told] : rows) {
        PlayerInWorld in;
        in.world.servers["/a"] = Unauthorised;
        in.player.SetUrl(Url);
        in.EverySecond(1s, 299s, [&in, told = told] { told(in); });
        in.At(30500ms, [&in] { EXPECT_EQ(in.player.State(), Ready); });
        in.RunTo(5min);
        EXPECT_EQ(in.Asked(), 5U) << name;
    }
}

TEST(Player, TellsWhyItIsSilentAndWhenItTriesAgain) {
    const auto wave = [](unsigned coding) {
        return Riff(FormatChunk(coding, 1, 8000, 8) + Chunk("data", "x"));
    };
    const std::tuple<const char*, Script, const char*> rows[] = {
        {"http://unknown/", {}, "Server not found, next try in 1 s"},
        {Url, NotFound, "The server says: no such feed (404), next try in 1 s"},
        {Url, {"HTTP/1.0 403 No\r\n\r\n"}, "The server refuses it (403), next try in 1 s"},
        {Url, {"HTTP/1.0 410 No\r\n\r\n"}, "The server says: gone for good (410)"},
        {Url, {"HTTP/1.0 503 No\r\n\r\n"}, "The server has trouble (503), next try in 1 s"},
        {Url, {"HTTP/1.0 418 No\r\n\r\n"}, "The server sends no sound (418), next try in 1 s"},
        {Url, Unauthorised, "The server wants a password (401)"},
        {Url, {Ok + "<html>" + std::string(9000, ' ')}, "A web page, not sound, next try in 1 s"},
        {Url, {Ok, IoStatus::EndOfStream}, "The server answers, but sends nothing, next try in 1 s"},
        {Url, {"SSH-2.0\r\n\r\n"}, "The server answers nothing of use, next try in 1 s"},
        {Url, {Ok + Frames(40), IoStatus::EndOfStream}, "The connection was lost, next try in 1 s"},
        {"http://h:x/", {}, "This is no address of a server"},
        {"Z:\\none.wav", {}, "There is no such file"},
        {"\xFF", {}, "There is no such file"},
        {"mms://h/a", {}, "Quillon cannot play that"},
        {Url, {Ok + wave(0x22)}, "This coding of waves is not taken from servers, next try in 1 s"},
        {Url, {Ok + wave(6)}, "No decoder for this coding of waves"},
        {Url, {Ok, IoStatus::Ok}, ""},
    };
    for (const auto& [url, script, words] : rows) {
        PlayerInWorld in;
        in.world.servers["/a"] = script;
        EXPECT_EQ(WordsOf(in.player.Condition()), "");
        in.player.SetUrl(url);
        std::string told;
        for (const milliseconds when : {500ms, 1500ms})
            in.At(when, [&] {
                if (told.empty()) told = WordsOf(in.player.Condition());
            });
        in.RunTo(2s);
        EXPECT_EQ(told, words) << url << script.bytes.substr(0, 20);
        EXPECT_EQ(WordsOf(in.player.Condition()), "") << "after stopping";
    }
}

TEST(Player, GoesNoFurtherThanTheCataloguesOwnAddressAllows) {
    const char* const refused = "Refused: it leads into a private network";
    const std::array<const char*, 3> rows[] = {
        // address, what is asked, what is told
        {"https://h/down", "/down ", "Refused: a redirect from https to http"},
        {"https://h/up", "/up /a ", ""},
        {"https://h/list", "/list /a ", "not encrypted"},
        {"https://h/nested", "/nested /list /a ", "not encrypted"},
        {"http://h/list", "/list /a ", ""},
        {"http://h/in", "/in ", refused},
        {"http://h/list-in", "/list-in ", refused},
        {"http://lan/in", "/in /a ", ""},
        {"http://lan/list-in", "/list-in /a ", ""},
        {"http://lan/out", "/out /in ", refused},
    };
    const auto to = [](const char* url) {
        return Script{std::string("HTTP/1.0 302 x\r\nLocation: ") + url + "\r\n\r\n"};
    };
    const auto list = [](const char* url) { return Script{Ok + "#EXTM3U\n" + url, IoStatus::EndOfStream}; };
    for (const auto& [url, asked, told] : rows) {
        PlayerInWorld in;
        in.world.servers = {{"/a", {Ok, IoStatus::Ok}},         {"/down", to("http://h/a")},
                            {"/up", to("https://h/a")},         {"/in", to("http://lan/a")},
                            {"/out", to("http://h/in")},        {"/list", list("http://h/a")},
                            {"/nested", list("http://h/list")}, {"/list-in", list("http://lan/a")}};
        in.player.SetUrl(url);
        FeedCondition condition;
        in.At(900ms, [&] { condition = in.player.Condition(); });
        in.RunTo(1s);
        EXPECT_EQ(WordsOf(condition), told) << url;
        EXPECT_EQ(Asked(in.world), asked) << url;
    }
}

TEST(Player, ForgetsItsReasonOnceTheFeedIsHeardAndKeepsItInACoolDown) {
    PlayerInWorld in;
    in.world.servers["/a"] = Unauthorised;
    in.player.SetUrl(Url);
    in.EverySecond(1s, 59s, Cycle(in));
    in.At(30500ms, [&in] {
        EXPECT_EQ(WordsOf(in.player.Condition()), "The server wants a password (401), next try in 30 s");
        in.world.servers["/a"] = {Ok, IoStatus::Ok};
    });
    in.At(65s, [&in] { EXPECT_EQ(WordsOf(in.player.Condition()), ""); });
    in.RunTo(66s);
}

TEST(Player, StaysSilentWhenReloadedWhilePausedOrStopped) {
    const Script sounds{Ok, IoStatus::Ok};
    for (const Script& script : {sounds, Unauthorised}) {
        PlayerInWorld in;
        in.world.servers["/a"] = script;
        in.player.SetUrl(Url);
        in.At(1s, [&in, sounds] {
            in.player.Pause();
            in.world.servers["/a"] = sounds;
            in.player.Reload();
        });
        in.At(4s, [&in] {
            EXPECT_EQ(in.player.State(), Paused);
            EXPECT_FALSE(in.world.audible());
            in.player.Play();
        });
        in.At(5s, [&in] { in.player.Reload(); });
        in.At(6s, [&in] {
            EXPECT_TRUE(in.world.audible()) << "connected anew";
            in.player.Stop();
            in.player.Reload();
        });
        in.RunTo(7s);
        EXPECT_EQ(in.player.State(), Stopped);
        EXPECT_EQ(in.Asked(), 3U) << script.bytes;
    }
}

TEST(Player, KeepsVolumeAndNameFromFeedToFeed) {
    PlayerInWorld in;
    in.world.servers["/a"] = in.world.servers["/b"] = {Ok, IoStatus::Ok};
    in.player.SetVolume(50);
    in.player.SetUrl(Url);
    in.At(1s, [&in] {
        in.player.SetUserAgent("me (at home)");
        in.player.SetUserAgent(std::string(201, 'a'));
        for (const char* bad : {"", "a\rX: y", "a\nX: y", "\x7F", "\xC3\xBC"}) in.player.SetUserAgent(bad);
        in.player.SetUrl("http://h/b");
    });
    in.At(1900ms, [&in] {
        EXPECT_EQ(in.world.levels, (std::set<int>{500}));
        in.player.SetVolume(25);
    });
    in.RunTo(3s);
    EXPECT_EQ(in.world.levels, (std::set<int>{250, 500}));
    EXPECT_EQ(in.world.agents, (std::set<std::string>{"Quillon/1.0", "me (at home)"}));
}

TEST(Player, FadesAtTheEdgeOfTheRangeOnly) {
    PlayerInWorld in;
    in.world.servers["/a"] = {Ok, IoStatus::Ok};
    in.player.SetUrl(Url);
    in.EverySecond(1s, 3s, [&in] { in.player.FadeOut(); });
    in.At(4s, [&in] { in.player.Play(); });
    in.At(5s, [&in] { in.player.Pause(); });
    in.At(6s, [&in] { in.player.Play(); });
    in.RunTo(7s);
    EXPECT_EQ(in.world.ramps, "300 0 300 10 0 10 ");
}

TEST(Player, KeepsItsWaitWhenToldTheSameAgain) {
    PlayerInWorld in;
    in.world.servers["/a"] = NotFound;
    in.player.SetUrl(Url);
    in.EverySecond(500ms, 59500ms, [&in] {
        EXPECT_EQ(in.player.State(), Transitioning);
        in.player.SetUrl(Url);
        in.player.Play();
    });
    in.RunTo(1min);
    EXPECT_GE(in.Asked(), 6U); // after 1, 2, 4, 8, 15 and perhaps 30 s
    EXPECT_LE(in.Asked(), 7U);
}

TEST(Player, ObeysAtOnceWhileItConnectsAndWaits) {
    for (const Script& script : {NotFound, Script{""}}) { // waits, connects
        PlayerInWorld in;
        in.world.servers["/a"] = script;
        in.world.servers["/b"] = {Ok + Frames(1000)};
        in.player.SetUrl(Url);
        in.At(5s, [&in] {
            in.player.Pause();
            EXPECT_EQ(in.player.State(), Paused);
        });
        in.At(9s, [&in] {
            EXPECT_EQ(in.player.State(), Paused);
            in.player.Play();
            EXPECT_EQ(in.player.State(), Transitioning);
            in.player.Stop();
            EXPECT_EQ(in.player.State(), Stopped);
            in.player.SetUrl("http://h/b");
        });
        in.At(9500ms, [&in] { EXPECT_EQ(in.player.State(), Playing); });
        in.RunTo(10s);
        EXPECT_EQ(in.world.asked.back().second, "/b");
    }
}

TEST(TwoPlayers, HandOverWhatTheBuiltInOneCannotPlay) {
    for (const char* url : {"http://h/wma", "http://h/list", "http://h/moved", "http://h/aac", "mms://h/x"}) {
        BothPlayers in;
        in.both.SetVolume(30);
        in.both.SetUrl(url);
        EXPECT_EQ(in.made, 0) << url;
        in.EverySecond(0s, 2s, [&] { EXPECT_EQ(in.both.State(), Transitioning) << url; });
        in.At(3s, [&] {
            ASSERT_EQ(in.control->urls, (std::vector<std::string>{url}));
            in.control->state = Playing;
            in.both.SetVolume(40);
            EXPECT_EQ(in.both.State(), Playing);
            EXPECT_EQ(in.control->volume, 40);
            in.both.Pause();
            EXPECT_EQ(in.both.State(), Paused);
            in.world.has_codec = true;
            in.both.SetUrl("http://h/a");
        });
        in.At(4s, [&] {
            EXPECT_EQ(in.both.State(), Playing);
            EXPECT_EQ(in.control->url, "");
            in.both.SetUrl(url); // remembered
            EXPECT_EQ(in.control->urls.size(), 2U);
            EXPECT_FALSE(in.both.Condition().Silence) << url;
            in.control->state = Ready; // gives it up, too
            EXPECT_EQ(in.both.State(), Ready);
            EXPECT_TRUE(in.both.Condition().Silence && !in.both.Condition().NotEncrypted) << url;
        });
        in.RunTo(5s);
        EXPECT_FALSE(in.world.audible());
        EXPECT_EQ(in.made, 1);
    }
}

TEST(TwoPlayers, HandOverOnlyWhatIsToBeHeard) {
    BothPlayers in;
    in.both.SetUrl("http://h/wma");
    in.both.Pause();
    in.EverySecond(0s, 3s, [&] {
        in.both.Pause();
        EXPECT_EQ(in.both.State(), Paused);
    });
    in.At(3500ms, [&] {
        EXPECT_EQ(in.made, 0);
        in.both.Play();
        EXPECT_EQ(in.both.State(), Transitioning);
        in.both.SetUrl("http://h/aac");
    });
    in.At(4s, [&] {
        in.both.Stop();
        EXPECT_EQ(in.both.State(), Stopped);
        in.both.Play();
        EXPECT_EQ(in.control->url, "http://h/aac");
    });
    in.RunTo(5s);
}

TEST(TwoPlayers, DoWithoutAControlThatDoesNotAnswer) {
    for (const ForcedPlayer forced : {ForcedPlayer::None, ForcedPlayer::Control, ForcedPlayer::BuiltIn}) {
        BothPlayers in;
        in.answers = forced == ForcedPlayer::BuiltIn;
        in.both.Force(forced);
        in.both.SetUrl("http://h/aac");
        in.EverySecond(1s, 50s, [&] {
            EXPECT_EQ(in.both.State(), Ready);
            EXPECT_EQ(WordsOf(in.both.Condition().Silence), "No decoder for AAC");
            in.both.SetUrl("http://h/aac");
        });
        in.RunTo(51s);
        EXPECT_EQ(in.Asked(), 1U);
        EXPECT_EQ(in.made, forced == ForcedPlayer::BuiltIn ? 0 : 1);
    }
}

TEST(TwoPlayers, LetTheControlPlayEverythingIfForced) {
    BothPlayers in;
    in.both.Force(ForcedPlayer::Control);
    in.both.SetUrl("http://h/a");
    in.RunTo(1s);
    EXPECT_EQ(in.control->url, "http://h/a");
    EXPECT_EQ(in.Asked(), 0U);
}

} // namespace
