// Whole flights through the program, on a fake simulator, player, clock and screen.
#include "Flight.h"
#include "app/StartVolume.h"
#include "simlink/SimConnection.h"

using namespace quillon;

namespace {

TEST_F(Flight, StartsConnectsAndEnds) {
    regional.decimal = ",";
    regional.thousand = ".";
    Write("Quillon\\Quillon.state", "user-agent=me\nvolume=40\n");
    Start("30");
    EXPECT_EQ(clock.passed / std::chrono::seconds(1), 4) << "four seconds of splash, then the simulator";
    EXPECT_TRUE(prompts.messages.empty());
    EXPECT_TRUE(state().form.Visible);
    EXPECT_FALSE(state().splash.Visible);
    EXPECT_TRUE(state().radio.SimConnected);
    EXPECT_EQ(state().radio.FsuipcVersionText, "4.999");
    EXPECT_EQ(state().form.lvwDB.Items().size(), 8U); // three folders of recordings have joined
    EXPECT_EQ(player.volume, 30);
    EXPECT_EQ(player.user_agent, "me");
    EXPECT_EQ(regional.decimal + regional.thousand, ".,");
    simulator.rounds = 0;
    Tick();
    EXPECT_EQ(simulator.rounds, 2); // the hand-shake, and everything else in one

    ReplaceFile(At("Quillon\\Quillon.ini"), "spoilt");
    program->SetVolume(0);
    program->Run(Command::mnuQuit);
    EXPECT_TRUE(state().Ended);
    EXPECT_EQ(Read("Quillon\\Quillon.state"),
              "volume=0\r\nuser-agent=me\r\nwindow=\r\ncolumns=700 3500 800 "
              "2400\r\nstay-open=\r\nshared-frequencies=\r\nskip-faulty-lines=\r\nplayer=\r\nsound-device="
              "\r\nsound-device-name=\r\n"
              "place=\r\ncompact-place=\r\ncompact=no\r\non-top=no\r\nhide-when-minimised=no\r\n"
              "start-minimised=no\r\n");
    EXPECT_EQ(Read("Quillon\\Quillon.ini"), " 50 \r\nCom2Stby\r\n 15 \r\n 25 \r\n 9 \r\n");
    EXPECT_EQ(regional.decimal + regional.thousand, ",.");
    program->EndSession();
    EXPECT_EQ(regional.writes, 4); // the way out is taken once
    regional.decimal = ".", regional.thousand = ",", regional.writes = 0;
    Start();
    EXPECT_EQ(player.volume, 0);
    EXPECT_FALSE(FileExists(At("Quillon\\Quillon.separators"))) << "nothing was replaced";
    program->Run(Command::mnuQuit);
    EXPECT_EQ(regional.writes, 0);
}

TEST_F(Flight, TheNextRunPutsACrashedOnesSeparatorsBack) {
    for (const std::string chosen_since : {"", "'"}) {
        regional.decimal = ",";
        regional.thousand = ".";
        Start();
        program.reset(); // a crash: nothing is put back
        if (!chosen_since.empty()) regional.decimal = chosen_since;
        Start();
        EXPECT_EQ(regional.decimal + regional.thousand, ".,");
        program->Run(Command::mnuQuit);
        EXPECT_EQ(regional.decimal + regional.thousand, (chosen_since.empty() ? "," : chosen_since) + ".");
        EXPECT_FALSE(FileExists(At("Quillon\\Quillon.separators")));
    }
}

TEST_F(Flight, AnEmptySeparatorIsReplacedTooButNothingWithoutANote) {
    regional.thousand = "";
    Start();
    EXPECT_EQ(regional.decimal + regional.thousand, ".,");
    program->Run(Command::mnuQuit);
    EXPECT_EQ(regional.thousand, "");
    MakeFolder("Quillon\\Quillon.separators"); // stands in the way of writing
    Start();
    EXPECT_EQ(regional.thousand, "");
    EXPECT_EQ(panel(3), "Number separators left unchanged: they could not be saved");
}

TEST_F(Flight, StartVolumeIsANumberFromOneToAHundred) {
    const std::pair<const char*, int> rows[] = {{"100", 100}, {"1", 1},   {" 30 ", 30}, {"101", 0},  {"0", 0},
                                                {"-5", 0},    {"abc", 0}, {"", 0},      {"1e999", 0}};
    for (const auto& [text, volume] : rows) EXPECT_EQ(StartVolume(text).value_or(0), volume) << text;
}

TEST_F(Flight, ShowsTheTitleOfAStreamAndReloadsIt) {
    Start();
    player.title = "KJFK Tower";
    for (const char* frequency : {"118.70", "118.00"}) { // a stream; a folder of recordings
        TuneTo(frequency);
        EXPECT_EQ(state().form.StatusBar1[2].ToolTipText, panel(3)) << frequency;
        Tick();
        const bool streams = player.url == "http://feeds.example/a";
        EXPECT_EQ(state().form.StatusBar1[2].ToolTipText, panel(3) + (streams ? "\r\nKJFK Tower" : ""));
        program->Run(Command::ReloadFeed);
        EXPECT_EQ(player.reloads, 1);
    }
}

TEST_F(Flight, SaysWhyAFeedIsSilentAndWhenItIsTriedAgain) {
    Start();
    const auto& feed = state().form.StatusBar1[2];
    const auto& status = state().form.StatusBar1[0];
    TuneTo("118.70");
    player.condition = {{SilenceCause::ServerNotFound, ""}, std::chrono::seconds(15)};
    for (const PlayState silent : {Transitioning, Ready, Ready, Buffering}) {
        player.state = silent;
        Tick();
        EXPECT_EQ(feed.Text, "Server not found, next try in 15 s") << silent;
        EXPECT_EQ(feed.ToolTipText, "CYYZ - Toronto Tower");
        EXPECT_EQ(status.ToolTipText, feed.Text);
    }
    program->Run(Command::StripPause);
    EXPECT_EQ(feed.Text, "CYYZ - Toronto Tower") << "muted";
    program->Run(Command::StripPlay);
    player.state = Playing;
    Tick();
    EXPECT_EQ(feed.Text + status.ToolTipText, "CYYZ - Toronto Tower");
    player.condition = {{}, {}, true};
    Tick();
    EXPECT_EQ(feed.ToolTipText, feed.Text + "\r\nnot encrypted");
    player.state = Transitioning;
    Tick();
    simulator.running = false;
    program->Run(Command::StayOpenMark);
    Tick();
    EXPECT_EQ(feed.Text, "Looking for the simulator ...");
    std::string events = Read("Quillon\\Events.log");
    for (const char* event :
         {" Quillon starts\r\n", " Link: connected\r\n", " Radio: 118.70\r\n",
          " Feed: CYYZ - Toronto Tower (118.70) http://feeds.example/a\r\n",
          " Player: Connecting: Server not found\r\n", " Player: Muted\r\n",
          " Command: Stay open when the simulator ends\r\n", " Link: looking for the simulator\r\n"}) {
        const std::size_t place = events.find(event);
        EXPECT_NE(place, std::string::npos) << event;
        events.erase(0, place); // in this order
    }
}

TEST_F(Flight, HighlightsWhatPlaysUntilTheUserSelectsAnother) {
    Start();
    const std::pair<const char*, std::optional<std::size_t>> rows[] = {
        {"118.70", 0}, {"118.00", 5} /* recordings */, {"121.50", std::nullopt}, {"119.72", 1}};
    for (const auto& [frequency, row] : rows) {
        TuneTo(frequency);
        Tick();
        EXPECT_EQ(state().form.lvwDB.Selected(), row) << frequency;
        program->SelectRow(3);
        player.state = row ? Ready : Stopped; // a dead feed is tried every second
        for (int tick = 0; tick < 3; ++tick) Tick();
        EXPECT_EQ(state().form.lvwDB.Selected(), 3U) << frequency;
    }
}

TEST_F(Flight, TunesTheFeedOfEachFrequency) {
    AppendFile(At("Quillon\\live_atc_feeds.txt"),
               "EGLL|as wide as the panel|http://h/7890123456789012345|121.50\r\n"
               "EGLL|wider|http://h/78901234567890123456|121.60\r\n|nowhere|http://n/|121.70\r\n");
    Start();
    simulator.FlyTo(51.01, -1.01);
    const struct {
        const char *frequency, *url, *feed, *address, *label;
        PlayState state;
    } rows[] = {
        {"119.72", "https://feeds.example/london/heathrow/director", "EGLL - London Director",
         "...ple/london/heathrow/director", "0 NM", Playing},
        {"118.70", "http://feeds.example/a", "CYYZ - Toronto Tower", "http://feeds.example/a",
         "3,087 NM (Out of Range)", Paused},
        {"119.00", "http://radio.example/b", "EGLL - Radio London", "http://radio.example/b", "Net Radio",
         Playing},
        {"119.05", "C:\\lists\\one.WPL", "EGLL - Playlist one", "C:\\lists\\one.WPL", "0 NM", Playing},
        {"119.10", "http://feeds.example/z", "ZZZZ - Nowhere", "http://feeds.example/z", "ICAO not found!",
         Paused},
        {"121.50", "http://h/7890123456789012345", "EGLL - as wide as the panel",
         "http://h/7890123456789012345", "0 NM", Playing},
        {"121.60", "http://h/78901234567890123456", "EGLL - wider", "...ttp://h/78901234567890123456", "0 NM",
         Playing},
        {"121.70", "http://n/", " - nowhere", "http://n/", "", Paused},
        {"122.80", nullptr, "*", "*", "", Stopped},
        {"119.72", "https://feeds.example/london/heathrow/director", "EGLL - London Director",
         "...ple/london/heathrow/director", "0 NM", Playing},
    };
    for (const auto& row : rows) {
        const std::size_t before = player.urls.size();
        TuneTo(row.frequency);
        EXPECT_EQ(panel(2), row.frequency);
        EXPECT_EQ(panel(3), row.feed);
        EXPECT_EQ(panel(4), row.address);
        EXPECT_EQ(distance(), row.label);
        EXPECT_EQ(player.state, row.state) << row.frequency;
        EXPECT_EQ(player.urls.size() - before, row.url ? 1U : 0U) << row.frequency;
        if (row.url) {
            EXPECT_EQ(player.url, row.url);
        }
        TuneTo(row.frequency); // nothing has changed: nothing starts again
        EXPECT_EQ(player.urls.size() - before, row.url ? 1U : 0U) << row.frequency;
    }
    EXPECT_EQ(state().form.lvwDB.Selected(), 1U);
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(Flight, TellsChannelsOf8Point33Apart) {
    Write("Quillon\\live_atc_feeds.txt", "CYYZ|a|http://a|125.30\r\nCYYZ|b|http://b|125.305\r\n"
                                         "CYYZ|c|http://c|125.31\r\nCYYZ|d|http://d|125.315\r\n"
                                         "CYYZ|e|http://e|125.030\r\nCYYZ|f|http://f|126.005\r\n"
                                         "CYYZ|g|http://g|126.025\r\nCYYZ|h|http://h|126.03\r\n");
    const std::array<const char*, 5> rows[] = {
        {"125.300", "125.30", "CYYZ - a", "125.30", "CYYZ - a"},
        {"125.305", "125.305", "CYYZ - b", "125.30", "CYYZ - a"},
        {"125.310", "125.310", "CYYZ - c", "125.31", "CYYZ - c"},
        {"125.315", "125.315", "CYYZ - d", "125.31", "CYYZ - c"},
        {"125.030", "125.030", "CYYZ - e", "125.30", "CYYZ - a"},
        {"125.025", "125.02", "CYYZ - e", "125.02", "*"}, // on the same carrier
        {"126.000", "126.00", "CYYZ - f", "126.00", "*"},
        {"126.010", "126.010", "*", "126.10", "*"},
        {"126.025", "126.02", "CYYZ - g", "126.02", "CYYZ - g"},
        {"126.030", "126.030", "CYYZ - h", "126.30", "*"}};
    for (const bool old : {false, true}) {
        if (old) simulator.BecomeFs9();
        Start();
        for (const auto& [tuned, shown, feed, old_shown, old_feed] : rows) {
            TuneTo(tuned);
            EXPECT_EQ(panel(2), old ? old_shown : shown);
            EXPECT_EQ(panel(3), old ? old_feed : feed) << tuned;
        }
    }
}

TEST_F(Flight, LeavesAPausedSimulatorsRadioAlone) {
    Start();
    TuneTo("118.70");
    simulator.Put(PauseFlag, 1);
    simulator.Tune(Com2Standby, "119.72");
    Tick();
    EXPECT_EQ(player.state, Paused);
    EXPECT_EQ(state().radio.MasterFrequency, "118.70");
    simulator.Put(PauseFlag, 0);
    Tick();
    EXPECT_EQ(state().radio.MasterFrequency, "119.72");
}

TEST_F(Flight, PlaysOnTheChosenSoundDeviceAndTellsOnceIfItIsGone) {
    Start();
    EXPECT_EQ(devices.used, "");
    program->OpenMenu();
    EXPECT_EQ(state().form.SoundDevices, (SoundDeviceMenu{{"Speakers", "Headset"}, 0}));
    program->Run(Command::DefaultSoundDevice + 2);
    program->Run(Command::DefaultSoundDevice + 3); // there is none
    EXPECT_EQ(devices.used, "{2}");
    program->Run(Command::mnuQuit);
    EXPECT_NE(Read("Quillon\\Quillon.state").find("sound-device={2}\r\nsound-device-name=Headset\r\n"),
              std::string::npos);

    devices.list.pop_back();
    devices.missing = true;
    Start();
    EXPECT_EQ(devices.used, "{2}");
    program->TimerTick(5);
    EXPECT_EQ(panel(3), "Sound device gone: Headset");
    clock.now += std::chrono::seconds(11);
    program->TimerTick(5);
    EXPECT_EQ(panel(3), "");
    program->OpenMenu();
    EXPECT_EQ(state().form.SoundDevices, (SoundDeviceMenu{{"Speakers"}, 0}));
    devices.missing = false;
    program->TimerTick(5);
    program->Run(Command::DefaultSoundDevice);
    EXPECT_EQ(devices.used, "");
}

TEST_F(Flight, AFeedThatIsNoLongerTunedNeverComesBack) {
    Start();
    for (const char* frequency : {"122.80", "118.00"}) { // no feed; a folder of recordings
        TuneTo("118.70");
        Tick();
        ASSERT_EQ(player.state, Playing);
        TuneTo(frequency);
        program->Run(Command::StripPause);
        program->Run(Command::StripPlay);
        EXPECT_EQ(player.state, Stopped);
        simulator.Put(PauseFlag, 1);
        Tick();
        simulator.Put(PauseFlag, 0);
        Tick();
        EXPECT_NE(player.url, "http://feeds.example/a") << frequency;
    }
}

TEST_F(Flight, PlayerStatesHaveTheirTexts) {
    Start();
    TuneTo("118.70");
    const std::tuple<PlayState, const char*, const char*> rows[] = {{Undefined, "Stopped", "Quillon -S"},
                                                                    {Stopped, "Stopped", "Quillon -S"},
                                                                    {Paused, "Paused", "Quillon -P"},
                                                                    {Playing, "Playing", "Quillon -OK"},
                                                                    {Buffering, "Buffering", "Quillon -B"},
                                                                    {MediaEnded, "Buffering", "Quillon -B"},
                                                                    {Transitioning, "Connecting", "Quillon -C"},
                                                                    {Waiting, "No Connection", "Quillon -NC"},
                                                                    {Ready, "No Connection", "Quillon -NC"}};
    for (const auto& [played, text, caption] : rows) {
        player.state = played;
        player.urls.clear();
        Tick();
        EXPECT_TRUE(played != Ready || player.urls.size() == 1) << "a lost player is a reason to search again";
        EXPECT_EQ(panel(1), text);
        EXPECT_EQ(state().form.Caption, caption);
    }
    EXPECT_TRUE(state().form.picATCNetVisible);
    TuneTo("119.00");
    Tick();
    EXPECT_EQ(state().form.Caption, "Quillon -Radio");
    EXPECT_FALSE(state().form.picATCNetVisible);
    program->Run(Command::picATCNet);
    EXPECT_EQ(shell.opened.size(), 1U);
}

TEST_F(Flight, ASimulatorThatGoesAwayEndsTheProgram) {
    Start();
    TuneTo("118.70");
    ReplaceFile(At("Quillon\\Quillon.ini"), "");
    simulator.running = false;
    Tick();
    EXPECT_TRUE(state().Ended);
    EXPECT_EQ(player.state, Stopped);
    EXPECT_NE(Read("Quillon\\Quillon.ini"), "");
}

/// What the program says when the link is lost and it goes on all the same.
void ExpectLooking(const ProgramState& state, const FakePlayer& player) {
    EXPECT_EQ(state.form.StatusBar1[2].Text, "Looking for the simulator ...");
    EXPECT_EQ(state.form.Caption, "Quillon -S");
    EXPECT_EQ(player.url, "");
    EXPECT_EQ(player.state, Stopped);
    EXPECT_FALSE(state.Ended);
}

TEST_F(Flight, StaysOpenForTheNextSimulatorIfMarked) {
    Start();
    program->Run(Command::StayOpenMark);
    EXPECT_NE(Read("Quillon\\Quillon.state").find("stay-open=yes"), std::string::npos);
    const std::pair<const char*, std::string> feeds[] = {{"118.70", "http://feeds"}, {"118.00", folder}};
    const auto hears = [this](const std::string& address) {
        for (int second = 0; second < 40 && !player.url.starts_with(address); ++second) {
            clock.Sleep(std::chrono::seconds(1));
            Tick();
        }
        return player.url.starts_with(address) && player.state == Playing;
    };
    for (int flight = 0; flight < 10; ++flight) {
        const auto& [frequency, address] = feeds[flight % 2];
        TuneTo(frequency);
        EXPECT_TRUE(hears(address));
        ReplaceFile(At("Quillon\\Quillon.ini"), "");
        simulator.running = false;
        Tick();
        ExpectLooking(state(), player);
        EXPECT_EQ(state().cycle.Timer(1).Interval, 2000);
        EXPECT_NE(Read("Quillon\\Quillon.ini"), "");
        Tick();
        ExpectLooking(state(), player);
        simulator.running = true;
        simulator.Put(0x3304, 0x28390000);
        prompts.messages.clear();
        for (int second = 0; second < 2; ++second) {
            Tick();
            EXPECT_EQ(prompts.messages.size(), 1U) << "told only once";
        }
        ExpectLooking(state(), player);
        simulator.Put(0x3304, 0x49990000);
        EXPECT_TRUE(hears(address)) << "the same frequency is tuned anew";
        EXPECT_EQ(state().cycle.Timer(1).Interval, 1000);
        EXPECT_TRUE(state().radio.SimConnected);
    }
}

TEST_F(Flight, WithoutASimulatorTheMarkedProgramPlaysByHandAndUnmutes) {
    Write("Quillon\\Quillon.state", "stay-open=yes\n");
    Start();
    TuneTo("118.70");
    program->Run(Command::StripPause);
    program->Run(Command::optManual);
    program->Run(Command::optAuto); // starts its timer while the sound is muted
    simulator.running = false;
    Tick();
    ExpectLooking(state(), player);
    keyboard.down = 9;
    program->TimerTick(5);
    EXPECT_FALSE(state().mute.Muted);
    program->TimerTick(5);
    EXPECT_FALSE(state().mute.Muted) << "nothing is there to be muted";
    program->Run(Command::optManual);
    EXPECT_FALSE(state().radio.NoConnection);
    EXPECT_EQ(panel(3), "*");
    Pick(0);
    Tick();
    EXPECT_EQ(player.state, Playing);
    program->TimerTick(5);
    EXPECT_TRUE(state().mute.Muted);
}

TEST_F(Flight, ALinkThatWasNotThereAtTheStartIsNotSilentlyLost) {
    simulator.running = false;
    StartByHand();
    program->Run(Command::optAuto);
    Tick();
    EXPECT_EQ(panel(3), "Looking for the simulator ...");
    simulator.running = true;
    TuneTo("118.70");
    EXPECT_EQ(panel(3), "CYYZ - Toronto Tower");
    simulator.running = false;
    Tick();
    ExpectLooking(state(), player);
    simulator.running = true;
    Tick();
    EXPECT_EQ(player.url, "http://feeds.example/a");
}

TEST_F(Flight, TheProgramLivesWhileTheSimulatorIsAsked) {
    Start();
    TuneTo("118.70");
    background.held = true;
    simulator.rounds = 0;
    Tick();
    Tick();
    program->SelectRow(1);
    program->Run(Command::CopyAddress);
    program->SelectRow(2);
    program->Run(Command::CopyAddress);
    EXPECT_TRUE(shell.opened.empty()) << "waits for the end of the tick";
    background.Finish();
    EXPECT_EQ(simulator.rounds, 2) << "a second tick was not begun";
    EXPECT_EQ(shell.opened, (std::vector<std::string>{"https://feeds.example/london/heathrow/director",
                                                      "http://radio.example/b"}));

    simulator.Tune(Com2Standby, "119.10");
    Tick();
    keyboard.down = 9;
    program->TimerTick(5);
    EXPECT_EQ(panel(1), "Muted");
    background.Finish();
    EXPECT_EQ(player.url, "http://feeds.example/a") << "the tick ended without touching the player";
    EXPECT_EQ(player.state, Paused);
    program->TimerTick(5);
    keyboard.down = 0;

    Tick();
    ReplaceFile(At("Quillon\\Quillon.ini"), "");
    program->Run(Command::mnuQuit);
    EXPECT_TRUE(state().Ended);
    EXPECT_NE(Read("Quillon\\Quillon.ini"), "");
    background.Finish();
    EXPECT_EQ(player.state, Stopped);
}

TEST_F(Flight, ASlowSimulatorIsWaitedForInWords) {
    Start();
    TuneTo("118.70");
    const std::string feed = panel(3);
    std::string waiting;
    simulator.asked = [&] {
        clock.Sleep(std::chrono::seconds(2));
        program->TimerTick(5);
        waiting = panel(3);
    };
    const auto restarts = state().cycle.Timer(1).RestartRequest;
    Tick();
    EXPECT_EQ(waiting, "Waiting for the simulator ...");
    EXPECT_GT(state().cycle.Timer(1).RestartRequest, restarts);
    program->TimerTick(5);
    EXPECT_EQ(panel(3), feed);

    simulator.asked = [&] { clock.Sleep(std::chrono::seconds(31)); };
    simulator.rounds = 0;
    TuneTo("119.10");
    EXPECT_EQ(simulator.rounds, 1) << "the rest is not asked any more";
    EXPECT_FALSE(state().Ended);
    EXPECT_EQ(panel(2), "118.70");
}

TEST_F(Flight, QuittingEndsTheWaiting) {
    simulator.running = false;
    clock.events = [&] {
        if (!state().form.Visible) return true;
        program->Run(Command::mnuEditData); // the list is loaded anew, and the next tick searches it
        EXPECT_TRUE(state().radio.NoConnection);
        program->TimerTick(1);
        EXPECT_EQ(panel(1) + panel(3) + state().form.Caption, "StoppedLooking for the simulator ...Quillon -S");
        background.held = true;
        program->Run(Command::mnuFSUPIC);
        EXPECT_TRUE(state().fsuipc_status.Visible && !background.Busy())
            << "only the search for a simulator asks";
        background.held = false;
        program->Run(Command::mnuQuit);
        return false;
    };
    Start();
    EXPECT_FALSE(state().radio.SimConnected);
    EXPECT_TRUE(state().Ended);
}

TEST_F(Flight, TheStartTriesAgainAfterTwoSeconds) {
    simulator.refuses = true;
    std::set<std::chrono::milliseconds> pauses;
    std::chrono::milliseconds last{0};
    simulator.asked = [&] { pauses.insert(clock.passed - std::exchange(last, clock.passed)); };
    clock.events = [&] { return simulator.refuses = clock.passed < std::chrono::seconds(20), true; };
    Start();
    using std::chrono::milliseconds; // within a try, between two, and of the splash
    EXPECT_EQ(pauses, (std::set{milliseconds(100), milliseconds(2000), milliseconds(4000)}));
}

TEST_F(Flight, ModesSwitchTheTimersAndForceANewSearch) {
    Start();
    TuneTo("118.70");
    EXPECT_TRUE(program->CanRun(Command::optManual) && !program->CanRun(Command::optAuto));
    program->Run(Command::optManual);
    EXPECT_TRUE(program->CanRun(Command::optAuto) && !program->CanRun(Command::optManual));
    EXPECT_EQ(state().cycle.ActiveTimerId, 2);
    EXPECT_EQ(state().form.Caption + panel(4), "Quillon - ManualSelection Mode: Manual");
    player.urls.clear();
    program->TimerTick(2);
    EXPECT_EQ(player.state, Playing); // what plays goes on
    EXPECT_TRUE(player.urls.empty()) << "and nothing starts by itself";
    program->Run(Command::optAuto);
    EXPECT_EQ(player.url, "");
    EXPECT_EQ(distance(), "Stopped");
    EXPECT_EQ(panel(4), "Selection Mode: Automatic");
    Tick();
    EXPECT_EQ(player.url, "http://feeds.example/a");
}

TEST_F(Flight, TheStripMutesTheCycleInAutomaticMode) {
    Start();
    player.title = "KJFK Tower";
    TuneTo("118.70");
    Tick();
    program->Run(Command::StripPause);
    EXPECT_EQ(player.state, Paused);
    EXPECT_FALSE(state().cycle.Timer(1).Enabled);
    EXPECT_EQ(state().form.Caption, "Quillon -Mute");
    EXPECT_EQ(panel(1), "Muted");
    EXPECT_EQ(state().form.StatusBar1[2].ToolTipText, panel(3));
    program->Run(Command::StripStop); // muted is muted
    program->Run(Command::StripPlay);
    EXPECT_EQ(player.state, Playing);
    EXPECT_TRUE(state().cycle.Timer(1).Enabled);
    EXPECT_EQ(state().form.Caption, "Quillon");
    EXPECT_EQ(panel(1), "Playing");

    TuneTo("119.00");
    program->Run(Command::StripStop);
    EXPECT_EQ(player.state, Stopped); // an internet radio station is stopped rather than paused
    program->Run(Command::StripPlay);

    program->Run(Command::StripPause);
    program->Run(Command::optManual); // switching modes starts a timer while the sound is muted
    program->Run(Command::optAuto);
    Tick();
    ASSERT_EQ(player.state, Playing);
    program->Run(Command::StripPause); // and that can be muted too
    EXPECT_NE(player.state, Playing);
    EXPECT_FALSE(state().cycle.Timer(1).Enabled);
    program->Run(Command::StripPlay);

    program->Run(Command::optManual);
    program->Run(Command::StripStop);
    EXPECT_EQ(player.state, Stopped);
    EXPECT_FALSE(state().mute.Muted);
    program->Run(Command::StripPlay);
    EXPECT_EQ(player.state, Playing);
    program->SetVolume(140);
    EXPECT_EQ(player.volume, 100);
}

TEST_F(Flight, AFailedStartShowsTheWindowAndWritesNothing) {
    MakeFolder("Quillon\\Trace.log");
    regional.decimal = ",";
    Write("Quillon\\Quillon.ini", "12\r\nCom1\r\nxx\r\n30\r\n35\r\n");
    Start();
    EXPECT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(regional.decimal, ",");
    EXPECT_TRUE(state().form.Visible && !state().splash.Visible && state().radio.SimConnected);
    program->Run(Command::mnuQuit);
    EXPECT_EQ(Read("Quillon\\Quillon.ini"), "12\r\nCom1\r\nxx\r\n30\r\n35\r\n");
}

TEST_F(Flight, AModuleThatIsTooOldEndsTheProgramUnsaved) {
    simulator.Put(0x3304, 0x28390000);
    regional.thousand = "'";
    prompts.meanwhile = [&] { ReplaceFile(At("Quillon\\Quillon.ini"), "untouched"); };
    Start();
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0], (FakePrompts::Shown{"Quillon", TooOldText("FSX", "2.839"), Icon::Critical}));
    EXPECT_TRUE(state().Ended);
    EXPECT_EQ(Read("Quillon\\Quillon.ini"), "untouched");
    EXPECT_EQ(regional.thousand, "'");
}

TEST_F(Flight, NothingNestsInsideAMessageBox) {
    Start();
    DeleteFileAt(At("Quillon\\Quillon.ini"));
    MakeFolder("Quillon\\Quillon.ini"); // the way out will have something to report too
    prompts.meanwhile = [&] {
        program->TimerTick(1);
        program->Run(Command::optManual);
        program->Run(Command::mnuQuit);
        EXPECT_FALSE(state().cycle.optManual());
        EXPECT_FALSE(state().Ended);
    };
    simulator.Put(PauseFlag, 0xFFFF);
    Tick();
    ASSERT_EQ(prompts.messages.size(), 2U);
    EXPECT_EQ(prompts.messages[0],
              (FakePrompts::Shown{"Timer1 errors", "Check pause state\rError 6 Overflow", Icon::Information}));
    EXPECT_TRUE(player.urls.empty());
    EXPECT_TRUE(state().Ended); // closing follows the handler that was running
}

TEST_F(Flight, AQuestionThatCannotBeAskedIsAnErrorAndTheNextOneIsAsked) {
    Start();
    background.fails = true;
    Tick();
    EXPECT_EQ(prompts.messages.back().title, "Unexpected error");
    background.fails = false;
    TuneTo("118.70");
    EXPECT_EQ(player.url, "http://feeds.example/a");
}

} // namespace
