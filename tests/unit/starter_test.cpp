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

} // namespace quillon
