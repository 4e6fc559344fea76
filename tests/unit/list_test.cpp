// The list in the user's hands: sorting, searching, picking, tuning from it; and the preferences.
#include "Flight.h"
#include "state/MuteKeys.h"

using namespace quillon;

namespace {

std::string Icaos(const ListView& list) {
    std::string all;
    for (const FeedRecord& item : list.Items()) all += std::string(item.ICAO) + " ";
    return all;
}

TEST(ListView, SortsWithoutCaseKeepsEqualsAndCarriesMarks) {
    ListView list;
    for (const char* icao : {"b2", "\xC3\x89", "A", "B1", "b1", "\xC3\xA9", "a"}) list.Add({icao, "", "", ""});
    list.Select(1);
    list.MarkSearchHit(2);
    list.SetSorted(true);
    EXPECT_EQ(Icaos(list), "A a B1 b1 b2 \xC3\x89 \xC3\xA9 ");
    EXPECT_EQ(list.Selected(), 5U);
    EXPECT_EQ(list.LastSearchIndex(), 1);
    list.SortBy(Column::ICAO, SortOrder::Descending);
    EXPECT_EQ(Icaos(list), "\xC3\x89 \xC3\xA9 b2 B1 b1 A a ");
    list.Add({"B1", "new", "", ""});
    EXPECT_EQ(list.Items()[5].City, "new"); // behind its equals
    EXPECT_EQ(list.LastSearchIndex(), 7);
    list.Clear();
    EXPECT_EQ(list.LastSearchIndex(), 0);
    list.SortBy(Column::URL, SortOrder::Ascending); // an empty list sorts too
}

class Hand : public Flight {
  protected:
    const ListView& list() const { return state().form.lvwDB; }
};

TEST_F(Hand, SearchesFindMarkAndGoOn) {
    Start();
    const struct {
        bool by_city;
        const char *answer, *found; ///< the city found; null: not found
    } rows[] = {{false, "egll", "London Director"}, {false, "E", "London Director"}, {false, "LL", nullptr},
                {true, "TORONTO", "Toronto Tower"}, {true, "list", "Playlist one"},  {true, "moon", nullptr}};
    for (const auto& row : rows) {
        prompts.answer = row.answer;
        const std::size_t told = prompts.messages.size();
        row.by_city ? program->Run(Command::mnuCitySearch) : program->Run(Command::mnuSearch);
        ASSERT_EQ(list().LastSearchIndex() > 0, row.found != nullptr) << row.answer;
        EXPECT_EQ(prompts.messages.size() - told, row.found ? 0U : 1U);
        if (!row.found) continue;
        EXPECT_EQ(list().Items()[*list().Selected()].City, row.found) << row.answer;
        EXPECT_EQ(list().LastSearchIndex(), static_cast<int>(*list().Selected()) + 1);
    }
    EXPECT_EQ(prompts.messages.back().text, "moon not found!\rPlease revise your search");
    EXPECT_EQ(prompts.messages.back().title, "*NOT FOUND*");
    EXPECT_TRUE(player.urls.empty()); // in Automatic mode a search starts nothing

    RunAnswering(Command::mnuSearch, "EGLL");
    std::string cities;
    for (int again = 0; again < 3; ++again) {
        cities.append(list().Items()[*list().Selected()].City) += ";";
        program->Run(Command::SearchAgain);
    }
    EXPECT_EQ(cities, "London Director;Radio London;Playlist one;");
    EXPECT_EQ(list().Items()[*list().Selected()].City, "London Director"); // from the top again
    const int marked = list().LastSearchIndex();
    RunAnswering(Command::mnuCitySearch, "");
    EXPECT_EQ(list().LastSearchIndex(), marked); // no answer, no search
    program->Run(Command::lvwDB_ItemClick);
    EXPECT_EQ(list().LastSearchIndex(), 0);
}

TEST_F(Hand, PicksStartTheirSourceOnceInManualMode) {
    AppendFile(At("Quillon\\live_atc_feeds.txt"), "CYYZ|Media|mms://feeds.example/m|118.60\r\n"
                                                  "CYYZ|Toronto Tower|http://feeds.example/a|118.70\r\n");
    simulator.running = false;
    StartByHand();
    Tick();
    EXPECT_TRUE(player.urls.empty()); // nothing has been picked yet
    EXPECT_EQ(state().form.Caption, "Quillon - Manual Mode -S");
    const std::tuple<std::size_t, const char*, const char*, const char*> rows[] = {
        {0, "http://feeds.example/a", "CYYZ - Toronto Tower", "Manual Mode"},
        {0, "http://feeds.example/a", "CYYZ - Toronto Tower", "Manual Mode"}, // stops, starts again
        {2, "http://radio.example/b", "EGLL - Radio London", "Net Radio"},
        {3, "C:\\lists\\one.WPL", "EGLL - Playlist one", "Windows PlayList"},
        {5, "mms://feeds.example/m", "CYYZ - Media", "Manual Mode"},
        {6, "http://feeds.example/a", "CYYZ - Toronto Tower", "Manual Mode"}, // the twin stays selected
        {1, "https://feeds.example/london/heathrow/director", "EGLL - London Director", "Manual Mode"}};
    for (const auto& [row, url, feed, label] : rows) {
        player.urls.clear();
        Pick(row);
        EXPECT_EQ(player.state, Stopped);
        Tick();
        Tick();
        EXPECT_EQ(player.urls, std::vector<std::string>{url});
        EXPECT_EQ(panel(4).substr(panel(4).size() - 5), std::string(url).substr(std::strlen(url) - 5));
        EXPECT_EQ(panel(2), "Manual");
        EXPECT_EQ(panel(3), feed);
        EXPECT_EQ(list().Selected(), row);
        EXPECT_EQ(distance(), label);
        EXPECT_EQ(player.state, Playing) << "whatever the range";
        EXPECT_EQ(state().cycle.ActiveTimerId, 2);
    }
    Pick(7);
    EXPECT_EQ(state().cycle.ActiveTimerId, 4);
    EXPECT_TRUE(state().chatter.FirstPick);
    EXPECT_EQ(player.state, Stopped);
    program->Run(Command::optAuto);
    EXPECT_EQ(state().cycle.ActiveTimerId, 1);
}

TEST_F(Hand, CtrlDoubleClickTunesTheFollowedRadio) {
    Start();
    program->Run(Command::optCom2);
    program->lvwDB_DblClick(1); // without Ctrl
    keyboard.down = 17;
    program->Run(Command::optManual);
    program->lvwDB_DblClick(1); // not in Manual mode
    program->Run(Command::optAuto);
    EXPECT_EQ(simulator.Word(Com2), 0U);
    keyboard.down = 0;
    keyboard.was_down = 17;
    program->SelectRow(std::nullopt); // as Ctrl and a click do
    program->lvwDB_DblClick(1);
    EXPECT_EQ(simulator.Word(Com2), 0x00001972U);
    EXPECT_EQ(panel(2), "119.72");
    EXPECT_TRUE(player.url.empty());
    simulator.FlyTo(51.01, -1.01);
    Tick();
    EXPECT_EQ(player.url, "https://feeds.example/london/heathrow/director");
    EXPECT_TRUE(state().range.InRange);
    keyboard.down = 17;
    program->lvwDB_DblClick(1);
    EXPECT_TRUE(state().range.InRange) << "what plays already is not interrupted";
}

TEST_F(Hand, TuningToAChannelOf8Point33IsCheckedAfterwards) {
    constexpr std::uint32_t Hertz = 0x05D0, Before = 122'800'000;
    const struct {
        bool old;
        const char* feed;
        std::uint32_t word, hertz; ///< written
        const char *takes, *told;  ///< what the radio has afterwards
        int seconds = 1;           ///< until it is read
    } rows[] = {{false, "118.305", 0x1830, 118'305'000, "118.305", "CYYZ - x"},
                {false, "118.305", 0x1830, 118'305'000, "118.300", "The radio rejected 118.305"},
                {false, "118.31", 0x1831, 118'310'000, "118.310", "CYYZ - x"},
                {false, "118.025", 0x1802, Before, "118.02", "CYYZ - x"},
                {false, "118.30", 0x1830, Before, "122.80", "The radio rejected 118.30"},
                {true, "118.305", 0x1830, Before, "118.30", "The radio rejected 118.305"},
                {true, "118.31", 0x1831, Before, "118.31", "CYYZ - x"},
                {false, "118.30", 0x1830, Before, "122.80", "*", 11}, // someone else has retuned it
                {true, "118.30", 0x1830, Before, "122.80", "*"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.feed) + " " + row.takes);
        Write("Quillon\\live_atc_feeds.txt", "CYYZ|x|http://x|" + std::string(row.feed));
        if (row.old) simulator.BecomeFs9();
        Start();
        TuneTo("122.80");
        program->SelectRow(0);
        simulator.Put(Com2Standby, 0xAAAA5555);
        program->Run(Command::TuneFeed);
        EXPECT_EQ(simulator.Word(Com2Standby), row.word) << "four bytes";
        EXPECT_EQ(simulator.Word(Hertz), row.hertz);
        EXPECT_EQ(panel(2) == "118.310", !row.old && row.word == 0x1831);
        clock.now += std::chrono::seconds(row.seconds);
        TuneTo(row.takes);
        const std::string before = panel(3);
        EXPECT_TRUE(before == "CYYZ - x" || before == "*") << "too early: " << before;
        clock.now += std::chrono::seconds(1);
        Tick();
        EXPECT_EQ(panel(3), row.told);
        clock.now += std::chrono::seconds(9);
        program->TimerTick(5);
        EXPECT_EQ(panel(3), row.told);
        clock.now += std::chrono::seconds(1);
        program->TimerTick(5);
        EXPECT_EQ(panel(3), before);
    }
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(Hand, TheRangePromptConvertsWhatFits) {
    Start();
    struct Row {
        const char* answer;
        int range;
        const char* caption;
    } rows[] = {{"5", 5, "Set &Range (5)"},      {"", 5, "Set &Range (5)"},
                {"12.5", 12, "Set &Range (12)"}, {"1e3", 1000, "Set &Range (1000)"},
                {"-5", -5, "Set &Range (-5)"},   {"   ", 0, "Set &Range (disabled)"},
                {"7", 7, "Set &Range (7)"},      {"abc", 0, "Set &Range (disabled)"}};
    for (const auto& row : rows) {
        RunAnswering(Command::mnuRange, row.answer);
        EXPECT_EQ(state().range.ReceptionRange, row.range) << row.answer;
        EXPECT_EQ(state().form.mnuRangeCaption, row.caption);
    }
    EXPECT_TRUE(prompts.messages.empty());
    EXPECT_EQ(prompts.asked.first,
              "Please Input a Reception Range\r       (Numbers only)\r\rPresent Reception Range is: "
              "7 Nautical Miles\rEnter 0 to disable the Range function");
    EXPECT_EQ(prompts.asked.second, "7");
    TuneTo("119.10"); // at an airport that is not known, only the range switched off sets the tip
    EXPECT_EQ(state().form.Label2.ToolTipText, " Range Disabled ");
    EXPECT_TRUE(state().range.InRange);
    RunAnswering(Command::mnuRange, "50");
    EXPECT_EQ(state().form.Label2.ToolTipText, " Range set at 50 Nautical Miles ");
    RunAnswering(Command::mnuRange, "99999");
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0],
              (FakePrompts::Shown{"Set Range Error", "Set Range\rError 6 Overflow", Icon::Exclamation}));
    EXPECT_EQ(state().range.ReceptionRange, 50);
}

TEST_F(Hand, PreferencesAreSavedAndRestored) {
    Start();
    program->Run(Command::mnuSelComm);
    EXPECT_TRUE(state().form.Frame1Visible && state().mute.FrameOpen);
    for (const int radio : {4, 3, 2, 1}) {
        program->Run(Command::optCom1 + radio - 1);
        EXPECT_EQ(state().radio.SelectedComm, radio);
    }
    program->Run(Command::mnuRecordedChatter);
    program->Run(Command::cmdComClose);
    EXPECT_FALSE(state().mute.FrameOpen); // although the other frame is still shown
    EXPECT_TRUE(state().form.frmRandomChatterVisible);
    program->cboMin_Click(40);
    program->cboMax_Click(50);
    program->Run(Command::cmdClose2);
    RunAnswering(Command::mnuRange, "5");
    program->Run(Command::mnuQuit);
    EXPECT_EQ(Read("Quillon\\Quillon.ini"), " 5 \r\nCom1\r\n 45 \r\n 60 \r\n 9 \r\n");
    Start();
    EXPECT_EQ(state().radio.SelectedComm, 1);
    EXPECT_EQ(state().form.cboMin.Text + "/" + state().form.cboMax.Text, "45/60");
    EXPECT_EQ(state().form.mnuRangeCaption, "Set &Range (5)");
    program->Run(Command::Form_Click);
    EXPECT_EQ(shell.opened, std::vector<std::string>{state().folders.AppPath + "ddt"});
}

TEST_F(Hand, TheMuteKeyIsSetInItsDialog) {
    Write("Quillon\\Quillon.ini", "50\r\nCom1\r\n15\r\n25\r\n65\r\n");
    Start();
    int last = 65;
    for (const int typed : {-1, 16, -1, NoMuteKey}) { // -1: cancelled
        const auto set = typed < 0 ? std::nullopt : std::optional(typed);
        dialogs.set_key = set;
        program->Run(Command::mnuSetMute);
        EXPECT_EQ(dialogs.shown_key, std::exchange(last, set.value_or(last)));
        EXPECT_EQ(state().mute.MuteKeyCode, last);
    }
    EXPECT_EQ(MuteKeyOption(35) * 10 + MuteKeyOption(65), 45);
    for (const int key : {1, 6, 17, 18, 91, 229}) EXPECT_FALSE(CanBeMuteKey(key)) << key;
    EXPECT_TRUE(CanBeMuteKey(8) && CanBeMuteKey(16) && CanBeMuteKey(27));
}

TEST_F(Hand, TheStatusDialogShowsTheLink) {
    Start();
    TuneTo("118.70");
    simulator.Tune(0x034E, "118.055");
    simulator.Tune(0x311A, "136.980");
    simulator.Tune(Com2, "121.505");
    simulator.Put(0x3304, 0x52000000);
    Tick();
    program->Run(Command::mnuFSUPIC);
    EXPECT_EQ(
        state().fsuipc_status.LabelCaption,
        "FSUIPC Ver:    5.200\r\rCom1 Freq:      118.055\rCom1 Stby:      136.980\rCom2 Freq:      121.505\r"
        "Com2 Stby:      118.70\rFlightSim:  X-Plane\rFollowed:   Comm 2 Standby");
    EXPECT_FALSE(state().fsuipc_status.LabelRed);
    EXPECT_EQ(state().radio.MasterFrequency, "118.70");
    program->Run(Command::frmShow_FSUIPC_Command1);
    EXPECT_FALSE(state().fsuipc_status.Visible);
}

TEST_F(Hand, TheStatusDialogExplainsDeniedAccess) {
    simulator.refuses = true;
    StartByHand();
    program->Run(Command::mnuFSUPIC);
    EXPECT_TRUE(state().fsuipc_status.LabelRed);
    const std::string& text = state().fsuipc_status.LabelCaption;
    EXPECT_NE(text.find("FlightSim:  No Connection to Flight Simulator"), std::string::npos);
    EXPECT_NE(text.find("Unable to connect with the FSUIPC Module"), std::string::npos);
    EXPECT_NE(text.find("runs as administrator"), std::string::npos);
}

} // namespace
