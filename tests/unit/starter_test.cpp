#include "Flight.h"

namespace quillon {

class StarterTest : public Flight {
  protected:
    StarterTest() {
        MakeFolder("program\\starter\\ATC\\CYYZ_T");
        Write("program\\starter\\live_atc_feeds.txt", "EGLL|Example|http://feeds.example/e|119.72\r\n");
        Write("program\\starter\\Airport.dat", AirportLines);
        Write("program\\starter\\ATC\\CYYZ_T\\one.wav", "RIFF");
        shell.program_folder = At("program\\");
    }
    void Remove(const std::string& name) const { std::filesystem::remove_all(PathOf(At(name))); }
};

TEST_F(StarterTest, WhatIsMissingIsCreatedAndTakenUpAtOnce) {
    simulator.Tune(Com2Standby, "119.72");
    regional.decimal = ",";
    clock.events = [this] { return program->TimerTick(1), !program->State().Ended; };
    for (const char* missing : {"Quillon", "Quillon\\live_atc_feeds.txt", "Quillon\\Airport.dat"}) {
        SCOPED_TRACE(missing);
        Remove(missing);
        Start();
        EXPECT_EQ(state().form.lvwDB.Items().size(), 4U);
        EXPECT_EQ(state().Airports.Lines().size(), 3U);
        EXPECT_EQ(Read("Quillon\\ATC\\CYYZ_T\\one.wav"), "RIFF");
        EXPECT_EQ(regional.decimal, ".");
        EXPECT_TRUE(prompts.messages.empty()) << "offered before the files are loaded";
        const bool has_catalogue = missing == std::string("Quillon\\Airport.dat");
        EXPECT_EQ(panel(3) == "Tune a radio to a frequency of the list", !has_catalogue) << panel(3);
        Tick();
        EXPECT_EQ(state().feed.FeedIcao, "EGLL") << "tuned anew if a tick of the start has tuned already";
        program->Run(Command::mnuQuit);
        EXPECT_EQ(regional.decimal, ",");
    }
}

TEST_F(StarterTest, TheOfferIsMadeOnlyIfThereIsNothingToPlayAndSomethingToCreate) {
    prompts.yes = false;
    Start();
    EXPECT_EQ(prompts.questions.size(), 0U) << "nothing is missing but a recording";
    Write("Quillon\\live_atc_feeds.txt", "// no feeds\r\n");
    Remove("Quillon\\ATC");
    Start();
    EXPECT_EQ(prompts.questions.size(), 1U);
    EXPECT_FALSE(FolderExists(At("Quillon\\ATC"))) << "No is No";
    Write("Quillon\\live_atc_feeds.txt", "ZZZZ|A server's|\\\\nas\\chatter|118.00\r\n");
    Start();
    EXPECT_EQ(prompts.questions.size(), 1U) << "a folder on a server is not looked into";
    Write("Quillon\\live_atc_feeds.txt", "// no feeds\r\n");
    Remove("program\\starter");
    Start();
    EXPECT_EQ(prompts.questions.size(), 1U);
}

TEST_F(StarterTest, FilesOfARunWithoutDataFolderMoveIntoTheNewOneAndStayAsTheyAre) {
    Remove("Quillon");
    Write("live_atc_feeds.txt", "CYYZ|Mine|http://own.example/|118.70\r\n");
    Write("Quillon.ini", "12\r\nCom1\r\n20\r\n30\r\n35\r\n");
    Start();
    EXPECT_EQ(state().form.lvwDB.Items().front().City, "Mine");
    program->Run(Command::mnuQuit);
    EXPECT_EQ(Read("Quillon\\Quillon.ini"), " 12 \r\nCom1\r\n 20 \r\n 30 \r\n 35 \r\n");
    EXPECT_FALSE(FileExists(At("Quillon.ini")));
}

class PortableTest : public StarterTest {
  protected:
    PortableTest() {
        MakeFolder("program\\Data");
        const std::string feeds = "CYYZ|\u00FC|" + At("Quillon\\ATC\\CYYZ_T") + "|118.70\r\nEGLL|List|" +
                                  At("Quillon\\ATC\\one.wpl") + "|119.72\r\n";
        Write("Quillon\\live_atc_feeds.txt", *page.Encode(feeds));
        Write("Quillon\\Check.txt", "what it found");
    }
    std::string Data(const std::string& name) const { return Read("program\\Data\\" + name); }
};

TEST_F(PortableTest, AnEmptyDataFolderTakesACopyOfWhatTheUserHasIfWanted) {
    const std::string before = Read("Quillon\\live_atc_feeds.txt");
    regional.decimal = ",";
    simulator.Tune(Com2Standby, "118.70");
    Start();
    ASSERT_EQ(prompts.questions.size(), 1U);
    EXPECT_EQ(Data("Check.txt"), "what it found");
    EXPECT_TRUE(FileExists(At("program\\Data\\ATC\\CYYZ_T\\b.WAV")));
    EXPECT_TRUE(FileExists(At("program\\Data\\Quillon.separators")));
    EXPECT_EQ(Data("live_atc_feeds.txt"),
              "CYYZ|\u00FC|ATC\\CYYZ_T|118.70\r\nEGLL|List|" + At("Quillon\\ATC\\one.wpl") +
                  "|119.72\r\n//\r\n// Pre-Recorded Wave Files\r\n"
                  "CYYZ|Wav - Toronto ON - Tower Pearson Intl|ATC\\CYYZ_T|\r\n"
                  "YPPH|Wav - Perth Australia - Approach|ATC\\Kestrune - YPPH_A|\r\n"
                  "KLAX|Wav - Los Angeles - Tower|ATC\\Kestrune-Los Angeles-Tower|\r\n");
    Tick();
    Tick();
    EXPECT_TRUE(player.url.starts_with(At("program\\Data\\ATC\\CYYZ_T\\"))) << player.url;
    program->Run(Command::mnuAddATC);
    program->AddFeedEvent([this](AddFeed& dialog) {
        dialog.ChooseKind(SourceKind::WaveFiles);
        prompts.answer = At("program\\DATA\\ATC\\new\\a.wav");
        dialog.cmdBrowse_Click();
        EXPECT_EQ(prompts.asked.second, At("program\\Data\\ATC\\")) << "where it begins";
        EXPECT_EQ(state().add_feed[AddBox::txtURL], "ATC\\new\\");
        dialog.cmdCancel_Click();
    });
    program->Run(Command::mnuQuit);
    EXPECT_EQ(Read("Quillon\\live_atc_feeds.txt"), before);
    EXPECT_FALSE(FileExists(At("Quillon\\Quillon.ini")));
    EXPECT_TRUE(FileExists(At("program\\Data\\Quillon.ini")));
    Start();
    EXPECT_EQ(prompts.questions.size(), 1U) << "offered once";
}

TEST_F(PortableTest, OtherwiseItBeginsAnew) {
    prompts.yes = false;
    Start();
    ASSERT_EQ(prompts.questions.size(), 2U);
    EXPECT_NE(prompts.questions[1].find(At("program\\Data\\")), std::string::npos);
    prompts.yes = true;
    Start();
    ASSERT_EQ(prompts.questions.size(), 3U) << "it is not empty any more";
    EXPECT_EQ(state().form.lvwDB.Items().size(), 4U) << "the starter data";
}

TEST_F(PortableTest, ADataFolderThatCannotBeWrittenToIsToldOnceAndLeftAlone) {
    MakeFolder("program\\Data\\Quillon.try");
    Start();
    program->Run(Command::mnuQuit);
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_NE(prompts.messages[0].text.find(At("program\\Data\\")), std::string::npos);
    EXPECT_EQ(state().folders.DataPath, At("Quillon\\"));
    EXPECT_EQ(FilesBelow(At("program\\Data\\")).size(), 0U);
    EXPECT_TRUE(FileExists(At("Quillon\\Quillon.ini")));
}

} // namespace quillon
