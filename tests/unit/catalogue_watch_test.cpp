// Another program changes the catalogue or the airports while Quillon runs.
#include "Flight.h"

using namespace quillon;

namespace {

class Watch : public Flight {
  protected:
    Watch() { disk.held = true; }

    /// The tenths of a second of which ticks are made, with the looks at the files in between.
    void Seconds(int count) {
        for (int tenth = 0; tenth < 10 * count; ++tenth) {
            clock.Sleep(std::chrono::milliseconds(100));
            program->TimerTick(5);
            disk.Finish();
            if (tenth % 10 == 9) Tick();
        }
    }
    void Change(const std::string& text) const { Write("Quillon\\live_atc_feeds.txt", text); }
    std::size_t rows() const { return state().form.lvwDB.Items().size(); }

    const std::string more = std::string(Catalogue) + "EDDF|Frankfurt|http://feeds.example/f|119.20\r\n";
    const std::string first = Catalogue; ///< until the end of its first line
    const std::string rest = first.substr(first.find('\n') + 1);
};

TEST_F(Watch, WhatPlaysGoesOnIfItsLineIsStillThereAndItsFrequencyLeadsToIt) {
    const std::string moved = "CYYZ|Toronto Tower|http://feeds.example/a|120.00\r\n";
    const std::string a = "http://feeds.example/a";
    const struct {
        const char* name;
        std::string text;
        std::string automatic, manual; ///< what plays three seconds later; "" nothing
    } rows[] = {{"another line", more, a, a},
                {"its line is gone", rest, "", ""},
                {"its frequency is another one's now", moved + rest, "", a},
                {"an earlier line has its frequency", "CYYZ|Other|http://feeds.example/o|118.70\r\n" + first,
                 "http://feeds.example/o", a}};
    for (const bool manual : {false, true}) {
        for (const auto& row : rows) {
            SCOPED_TRACE(row.name + std::string(manual ? ", by hand" : ""));
            Change(first);
            Start();
            program->Run(Command::mnuSearch); // sorts the list
            TuneTo("118.70");
            if (manual) {
                program->Run(Command::optManual);
                program->Run(Command::lvwDB_ItemClick);
                Seconds(1);
            }
            ASSERT_EQ(player.url, a);
            player.urls.clear();
            Change(row.text);
            Seconds(3);
            const std::string& expected = manual ? row.manual : row.automatic;
            EXPECT_EQ(player.url, expected);
            EXPECT_EQ(player.state, expected.empty() ? Stopped : Playing);
            EXPECT_EQ(player.urls.empty(), expected == a || expected.empty()) << "it was started again";
            EXPECT_EQ(state().feed.FeedUrl, expected);
            EXPECT_TRUE(state().form.lvwDB.Sorted());
            const auto selected = state().form.lvwDB.Selected();
            if (expected == a) {
                EXPECT_EQ(state().form.lvwDB.Items()[selected.value()].URL, a);
            }
            EXPECT_EQ(state().cycle.ActiveTimerId, manual ? 2 : 1);
        }
    }
}

TEST_F(Watch, RecordingsPickedByHandEndWithTheirLine) {
    Start();
    program->Run(Command::optManual);
    Pick(5);
    Seconds(2);
    ASSERT_EQ(state().cycle.ActiveTimerId, 4);
    Change(first);
    Seconds(3);
    EXPECT_EQ(state().cycle.ActiveTimerId, 2);
    EXPECT_EQ(player.url + panel(3), "*");
}

TEST_F(Watch, WaitsUntilTheFileIsWholeAndNobodyIsBusy) {
    Start();
    std::filesystem::remove(PathOf(At("Quillon\\live_atc_feeds.txt")));
    Seconds(5);
    EXPECT_EQ(rows(), 8U) << "a missing file leaves the list alone";
    std::string growing = Catalogue;
    for (int second = 0; second < 5; ++second) {
        Change(growing += "EDDF|Frankfurt|http://feeds.example/f|119.20\r\n");
        Seconds(1);
        EXPECT_EQ(rows(), 8U) << "still being written";
    }
    program->Run(Command::mnuAddATC);
    Seconds(5);
    EXPECT_EQ(rows(), 8U) << "feeds are being added";
    program->AddFeedEvent([](AddFeed& dialog) { dialog.cmdCancel_Click(); });
    Change(more);
    Seconds(3);
    EXPECT_EQ(rows(), 6U);
    const auto revision = state().form.lvwDB.Revision();
    Change(more); // the same again
    Seconds(5);
    EXPECT_EQ(state().form.lvwDB.Revision(), revision);
}

TEST_F(Watch, IsSilentWhileMutedAndTellsAFaultOnce) {
    Start();
    TuneTo("118.70");
    program->Run(Command::StripStop);
    player.urls.clear();
    Change("CYYZ|Other|http://feeds.example/o|118.70\r\nfaulty|line\r\n");
    Seconds(10);
    EXPECT_EQ(prompts.messages.size(), 2U) << "for the frequencies and for the list";
    EXPECT_EQ(player.state, Stopped);
    EXPECT_TRUE(player.urls.empty());
    program->Run(Command::StripPlay);
    Seconds(2);
    EXPECT_EQ(player.urls, std::vector<std::string>{"http://feeds.example/o"});
}

TEST_F(Watch, TakesUpChangedAirports) {
    Start();
    TuneTo("118.70");
    Seconds(1);
    EXPECT_EQ(distance(), "0 NM");
    Write("Quillon\\Airport.dat", "ICAO,latitude,longitude\r\nCYYZ,N44*00.00,W079*00.00\r\n");
    Seconds(3);
    EXPECT_EQ(distance(), "59 NM (Out of Range)");
}

} // namespace
