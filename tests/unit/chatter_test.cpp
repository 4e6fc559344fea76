// Folders of recordings, tuned and picked by hand, and the mute key.
#include "Flight.h"
#include "playback/CurrentFeed.h"
#include "playback/MuteKey.h"
#include "playback/RecordedChatter.h"
#include "playback/ShuffleBag.h"

#include <algorithm>
#include <set>

using namespace quillon;

namespace {

TEST(GapSeconds, LiesWithinItsBounds) {
    constexpr double Most = 4294967295.0 / 4294967296.0;
    const struct {
        std::int16_t min, max;
        double r;
        int gap; ///< -1: overflow
    } rows[] = {{20, 30, 0, 20},       {20, 30, Most, 30},      {5, 5, Most, 5},   {30, 20, 0, 30},
                {30, 20, Most, 21},    {0, 32766, Most, 32766}, {0, 32767, 0, -1}, {-1, 32767, 0, -1},
                {32767, -1, 0, 32767}, {32767, -2, 0, -1}};
    for (const auto& row : rows) {
        if (row.gap < 0)
            EXPECT_THROW(GapSeconds(row.min, row.max, row.r), RuntimeError) << row.min << ".." << row.max;
        else
            EXPECT_EQ(GapSeconds(row.min, row.max, row.r), row.gap) << row.min << ".." << row.max;
    }
}

using Bag = TempFolder;

TEST_F(Bag, HoldsTheWavesOfTheFolderSorted) {
    MakeFolder("a b \xC3\xA9\\folder.wav");
    for (const char* name : {"b.WAV", "a.wav", "C.Wav", "\xC3\x89.wav", "d.wave", "e.wav.txt"})
        Write("a b \xC3\xA9\\" + std::string(name), "");
    const std::string waves = At("a b \xC3\xA9");
    ChatterState chatter;
    FakeFolderLister lister;
    std::string step;
    const Folders folders{"", folder + "\\", ""};
    ShuffleBag bag(chatter, folders, lister, step);
    for (const std::string& path : {waves, waves + "\\", waves.substr(folder.size() + 1)}) {
        bag.Fill(path);
        EXPECT_EQ(bag.Look(), ChatterFolder::HasRecordings);
        std::string all;
        for (const std::string& wave : chatter.List3) all += wave.substr(waves.size());
        EXPECT_EQ(all, "\\a.wav\\b.WAV\\C.Wav\\\xC3\x89.wav");
    }
    for (const std::string& nowhere : {At("missing"), waves + "\\a.wav", std::string("."), std::string()}) {
        bag.Fill(nowhere);
        EXPECT_NE(bag.Look(), ChatterFolder::HasRecordings) << nowhere;
    }
}

class Chatter : public Flight {
  protected:
    void StartWithGaps(int min, int max) {
        Write("Quillon\\Quillon.ini",
              " 50 \r\nCom2Stby\r\n " + std::to_string(min) + " \r\n " + std::to_string(max) + " \r\n 9 \r\n");
        Start();
    }
    void PickFolderByHand() {
        program->Run(Command::optManual);
        Pick(5);
    }
    void Seconds(int count) {
        using std::chrono::seconds;
        for (; count > 0; --count) {
            clock.now = std::chrono::floor<seconds>(clock.now) + seconds(1); // a tick takes its time, too
            Tick();
        }
    }
    /// Lets the recording be heard for a second, and ends it.
    void HearRecording() {
        Seconds(1);
        player.state = Stopped;
    }
    /// Seconds until the next recording starts.
    int Wait() {
        int seconds = 0;
        for (player.urls.clear(); player.urls.empty() && seconds < 100; ++seconds) Seconds(1);
        return seconds;
    }
    int gap() const { return state().chatter.NextChatterDelay; }
};

TEST_F(Chatter, EachRoundPlaysEveryRecordingOnceWithGapsWithinTheirBounds) {
    constexpr int Files = 4, Min = 2, Max = 5;
    for (const char* name : {"c.wav", "d.wav"}) Write("Quillon\\ATC\\CYYZ_T\\" + std::string(name), "");
    for (const bool by_hand : {false, true}) {
        StartWithGaps(Min, Max);
        by_hand ? PickFolderByHand() : TuneTo("118.00");
        std::set<int> gaps;
        std::set<std::string> orders;
        std::set<std::pair<int, std::string>> openings; // a round's first recording, and the gap drawn with it
        std::string order;
        const int rounds = by_hand ? 2'500 : 300; // a tick that asks the simulator takes longer
        for (int pick = 0; pick < rounds * Files; ++pick) {
            int wait = gap();
            if (pick == 0) {
                wait = 1; // nothing has been drawn yet
            } else if (pick % Files == 0) {
                Seconds(gap());
                EXPECT_EQ(player.state, Stopped); // this tick fills the bag again and plays nothing
                wait = std::max(1, gap() - wait);
            }
            ASSERT_EQ(Wait(), wait) << "pick " << pick;
            ASSERT_TRUE(gap() >= Min && gap() <= Max) << gap();
            ASSERT_EQ(order.find(player.url), std::string::npos) << player.url << " again";
            gaps.insert(gap());
            if (order.empty()) openings.emplace(gap(), player.url);
            order += player.url;
            if (pick % Files == Files - 1) orders.insert(std::exchange(order, ""));
            HearRecording();
        }
        EXPECT_EQ(gaps.size(), 4U);
        EXPECT_EQ(openings.size(), 16U); // no length of gap goes with one recording only
        EXPECT_EQ(orders.size(), 24U);
    }
}

TEST_F(Chatter, CountsDownInTheGap) {
    for (const bool by_hand : {false, true}) {
        const TimePoint started = clock.now;
        StartWithGaps(6000, 6000);
        TuneTo("118.70");
        by_hand ? PickFolderByHand() : TuneTo("118.00");
        EXPECT_EQ(Wait(), 1);
        EXPECT_EQ(state().form.Label3.Caption, std::to_string(DateDiffSeconds(started, clock.now)));
        EXPECT_EQ(panel(1) + state().form.Caption, "ATC PlayingQuillon -OK");
        EXPECT_EQ(panel(3), "CYYZ - Wav - Toronto ON - Tower Pearson Intl");
        EXPECT_EQ(panel(4), "..." + player.url.substr(player.url.size() - 28));
        EXPECT_EQ(distance(), by_hand ? "ATC Wave File" : "0 NM");
        EXPECT_EQ(state().chatter.List4, std::vector<std::string>{player.url});
        HearRecording();
        const std::pair<int, int> rows[] = {
            {1, 1}, {4999, 5000}, {1, 1} /* too long to be true */, {1, 2}, {-3600, 1} /* set back */,
            {1, 2}}; // seconds on, elapsed
        for (const auto& [seconds, elapsed] : rows) {
            clock.now += std::chrono::seconds(seconds - 1);
            Seconds(1);
            const std::string left = std::to_string(6000 - elapsed);
            EXPECT_EQ(state().form.Label3.Caption + "/" + state().form.Label4.Caption,
                      std::to_string(elapsed) + "/6000");
            EXPECT_EQ(panel(1) + panel(2), "ATC in " + left + " sec118.00");
            EXPECT_EQ(state().form.Caption, "Quillon -" + left);
            EXPECT_EQ(state().form.StatusBar1[1].ToolTipText, by_hand ? "" : " Comm 2 Standby ");
        }
    }
}

TEST_F(Chatter, DrawsWithoutPlayingOutOfRange) {
    StartWithGaps(2, 2);
    TuneTo("118.00");
    simulator.FlyTo(51, -1);
    Seconds(1 + 2);
    EXPECT_EQ(panel(1), "ATC Playing");
    EXPECT_EQ(state().chatter.List4.size(), 2U);
    EXPECT_TRUE(player.urls.empty());
    simulator.FlyTo(43, -79);
    Wait();
    EXPECT_EQ(player.state, Playing);
    simulator.FlyTo(51, -1);
    Seconds(1);
    EXPECT_EQ(player.state, Paused);
}

TEST_F(Chatter, HandsBackWithinATickOfARetune) {
    for (const bool playing : {true, false}) {
        StartWithGaps(20, 30);
        RunAnswering(Command::mnuSearch, "EGLL");
        TuneTo("118.00");
        Wait();
        EXPECT_EQ(state().LastSearchText + state().StartupStep, "");
        if (!playing) HearRecording();
        Seconds(1);
        TuneTo("118.70");
        EXPECT_EQ(state().cycle.ActiveTimerId, 1);
        Seconds(1);
        EXPECT_EQ(player.url, "http://feeds.example/a");
    }
    player.state = Ready;
    TuneTo("118.00");
    Seconds(1);
    EXPECT_EQ(state().cycle.ActiveTimerId, 1); // "No Connection" is a reason, too
    Seconds(1);
    EXPECT_EQ(state().cycle.ActiveTimerId, 3);
}

TEST_F(Chatter, APickByHandIsHeardAtOnceWhereverAndAlsoWhileMuted) {
    StartWithGaps(20, 30);
    TuneTo("118.00");
    Wait();
    simulator.FlyTo(51, -1);
    keyboard.down = 9;
    program->TimerTick(5);
    const std::string silenced = player.url;
    Seconds(60);
    EXPECT_EQ(player.url, silenced);
    EXPECT_EQ(player.state, Paused);
    for (int pick = 0; pick < 2; ++pick) {
        PickFolderByHand();
        EXPECT_EQ(Wait(), 1);
        EXPECT_EQ(panel(3), "CYYZ - Wav - Toronto ON - Tower Pearson Intl");
        EXPECT_EQ(player.state, Playing);
        EXPECT_EQ(state().chatter.List4.size(), 1U);
    }
    EXPECT_TRUE(state().mute.Muted);
    program->TimerTick(5);
    EXPECT_FALSE(state().mute.Muted);
    HearRecording();
    const int wait = gap();
    simulator.Tune(Com2Standby, "118.70"); // the radio has no say
    EXPECT_EQ(Wait(), wait);
}

TEST_F(Chatter, ListsAFolderWithoutRecordingsOnceAGapAndFindsThoseThatCome) {
    for (const bool by_hand : {false, true}) {
        StartWithGaps(5, 5);
        const std::string waves = state().folders.WavePath + "CYYZ_T";
        std::filesystem::remove_all(PathOf(waves));
        by_hand ? PickFolderByHand() : TuneTo("118.00");
        lister.listings = 0;
        Seconds(600);
        EXPECT_EQ(lister.listings, 100) << "a gap, and the second in which it is listed";
        EXPECT_EQ(panel(1) + state().form.Caption, "StoppedQuillon -S");
        EXPECT_EQ(panel(3), "Cannot reach " + waves);
        EXPECT_EQ(state().form.StatusBar1[2].ToolTipText, "CYYZ - Wav - Toronto ON - Tower Pearson Intl");
        MakeFolder("Quillon\\ATC\\CYYZ_T");
        Write("Quillon\\ATC\\CYYZ_T\\late.wav", "");
        EXPECT_LE(Wait(), 12);
        EXPECT_EQ(panel(1) + state().form.Caption, "ATC PlayingQuillon -OK");
    }
}

TEST_F(Chatter, DrawsNothingBeforeTheFolderIsListed) {
    for (const bool by_hand : {false, true}) {
        StartWithGaps(20, 30);
        lister.held = true;
        player.urls.clear();
        by_hand ? PickFolderByHand() : TuneTo("118.00");
        Seconds(40);
        EXPECT_TRUE(player.urls.empty());
        EXPECT_EQ(state().chatter.FirstPick, by_hand);
        EXPECT_EQ(panel(1) + panel(3), "StoppedCYYZ - Wav - Toronto ON - Tower Pearson Intl");
        lister.held = false;
        EXPECT_EQ(Wait(), 1);
    }
}

TEST_F(Chatter, StopAndPauseByHandLastUntilPlayOrAnotherPick) {
    for (const int command : {Command::StripStop, Command::StripPause}) {
        StartWithGaps(200, 200);
        PickFolderByHand();
        Wait();
        program->Run(command);
        player.urls.clear();
        const std::string shown = command == Command::StripStop ? "Stopped" : "Paused";
        Seconds(60);
        EXPECT_EQ(panel(1), shown);
        keyboard.down = 9; // mutes and un-mutes
        for (int second = 0; second < 2; ++second, clock.Sleep(std::chrono::seconds(1))) program->TimerTick(5);
        keyboard.down = 0;
        Seconds(60);
        EXPECT_TRUE(player.urls.empty());
        EXPECT_NE(player.state, Playing);
        EXPECT_EQ(panel(1), shown);
        program->Run(Command::StripPlay);
        Seconds(1);
        EXPECT_EQ(player.state, Playing);
        EXPECT_EQ(player.urls.size(), command == Command::StripStop ? 1U : 0U) << "the next one, or the same";
        program->Run(command);
        PickFolderByHand();
        Seconds(1);
        EXPECT_EQ(player.state, Playing);
    }
}

TEST_F(Chatter, CopesWithAnEmptyFolderAndReportsImpossibleGaps) {
    StartWithGaps(0, 32767);
    TuneTo("118.00");
    HearRecording();
    Seconds(3);
    PickFolderByHand();
    Seconds(3);
    const std::string text = "Check elapsed time\rError 6 Overflow";
    EXPECT_EQ(prompts.messages, (std::vector<FakePrompts::Shown>{{"Timer3 Errors", text, Icon::Information},
                                                                 {"Timer4 Errors", text, Icon::Information}}));
}

/// The pieces alone, where every state can be set.
struct Bench : TickBench {
    Bench() { PutInCharge(state.cycle, 4); }

    FakeKeyboard keyboard;
    FakeDisplay screen;
    FeedIndex index{state.form.lvwDB};
    AirportPositions positions{state.Airports};
    FeedChoice choice{state, state.form.lvwDB, index, positions};
    FakeFolderLister lister;
    ShuffleBag bag{state.chatter, state.folders, lister, state.StartupStep};
    RecordedChatter chatter{state, state.LastSearchText, texts, sim, choice, player, bag, clock, trap};
    Mute mute{state, texts, player};
    MuteKey mute_key{state, mute, keyboard, screen, clock};
};

TEST(ManualChatter, HandsOnlyAWebFeedBack) {
    const struct {
        const char *marker, *frequency;
        Activity shown;
        const char* timer;
        SelectionMode mode;
    } rows[] = {{"1", "118.70", Activity::None, "25", SelectionMode::Manual},
                {"1", "118.00", Activity::NoConnection, "15", SelectionMode::Automatic},
                {"1", "118.00", Activity::None, "45", SelectionMode::Manual},
                {"0", "118.70", Activity::NoConnection, "45", SelectionMode::Manual}};
    for (const auto& row : rows) {
        Bench bench;
        bench.state.cycle.Mode = row.mode;
        bench.state.feed.FeedUrlMarker = row.marker;
        bench.state.radio.PreviousFrequency = "118.00";
        bench.state.radio.MasterFrequency = row.frequency;
        bench.texts.ShowStatus({row.shown});
        bench.chatter.Timer4_Timer();
        EXPECT_EQ(EnabledTimers(bench.state.cycle), row.timer)
            << row.marker << row.frequency << static_cast<int>(row.shown);
        EXPECT_EQ(bench.state.cycle.ForceRetune, EnabledTimers(bench.state.cycle) != "45");
        EXPECT_EQ(bench.state.form.StatusBarColor.value_or(0), &row == &rows[2] ? 0U : 0xC0C0C0U);
    }
}

TEST(MuteKey, ShowsAtOnceWhatItMutedWhateverIsInCharge) {
    for (const std::int16_t timer : std::initializer_list<std::int16_t>{4, 7}) {
        Bench bench;
        PutInCharge(bench.state.cycle, timer);
        bench.state.feed.FeedUrlMarker = "0";
        bench.state.feed.RadioFeedMarker = 8; // recordings are paused, also those of a station
        bench.state.cycle.CaptionBase = "Quillon - Manual Mode";
        bench.texts.ShowStatus({Activity::Playing});
        bench.player.SetUrl("x");
        bench.keyboard.down = 9;
        std::string painted;
        bench.screen.painted = [&] {
            painted = bench.state.form[StatusPanel::Player].Text + bench.state.form.Caption;
        };
        bench.mute_key.Timer5_Timer();
        EXPECT_EQ(bench.player.state, Paused);
        EXPECT_EQ(painted + EnabledTimers(bench.state.cycle), "MutedQuillon - Manual Mode -Mute5");
        bench.mute_key.Timer5_Timer();
        EXPECT_EQ(bench.player.state, Playing);
        EXPECT_EQ(painted, "PlayingQuillon - Manual Mode");
    }
}

TEST(MuteKey, HeldDownTogglesOnceASecondUnlessItHasNoEffect) {
    const struct {
        std::int32_t key;
        int down;
        bool frame_open, no_connection, works;
        int held_too = 0; // while the key goes down
        bool in_box = false;
    } rows[] = {{9, 9, false, false, true},      {77, 77, false, false, true},
                {36, 9, false, false, false},    {0, 0, false, false, false},
                {9, 9, true, false, false},      {9, 9, false, true, false},
                {9, 9, false, false, true, 16},  {9, 9, false, false, false, 18},
                {9, 9, false, false, false, 92}, {9, 9, false, false, false, 0, true}};
    for (const auto& row : rows) {
        Bench bench;
        bench.state.mute = {row.key, false, row.frame_open, {}};
        bench.state.radio.NoConnection = row.no_connection;
        bench.keyboard.down = row.down;
        bench.keyboard.held_too = row.held_too;
        bench.keyboard.in_box = row.in_box;
        bench.clock.events = [] { return ADD_FAILURE() << "the wait serves events", true; };
        const TimePoint end = bench.clock.now + std::chrono::seconds(10);
        int toggles = 0;
        for (bool muted = false; bench.clock.now < end; bench.clock.now += std::chrono::milliseconds(100)) {
            bench.mute_key.Timer5_Timer();
            bench.keyboard.held_too = bench.keyboard.in_box = false; // the key is up last
            toggles += bench.state.mute.Muted != std::exchange(muted, bench.state.mute.Muted) ? 1 : 0;
        }
        EXPECT_EQ(toggles, row.works ? 10 : 0) << row.key << " " << row.down << " " << row.held_too;
    }
}

} // namespace
