// The check of the catalogue: what is wrong with its lines, what becomes of an address, the dialog's course.
#include "FakePlayerSystem.h"
#include "Flight.h"
#include "player/AddressProbe.h"

using namespace quillon;

namespace {

TEST(CatalogueReview, NamesTheLinesThatDoNotDoWhatTheyLookLike) {
    const CatalogueReview review =
        ReviewCatalogue("// a|b\r\nwords\r\n\r\nA|B|u|118.70\r\nA|only\r\nA|B|u\r\nC|D|u|118.70\nC|D|u|118.7\n"
                        "C|D|u|\nE|F||117.97\nE|F||136.97\nE|F||118x70\nE|F||137.00\nC|D|u|118.705\n"
                        "C|D|u|118.700\nC|D|u|118.702");
    std::string faults;
    for (const auto& fault : review.Faults)
        faults += std::to_string(fault.Number) + fault.Reason.substr(0, 5) + ",";
    EXPECT_EQ(faults, "5Only ,6Only ,7118.7,8\"118.,10No ra,12No ra,13No ra,15118.7,16\"118.,");
    EXPECT_EQ(review.Faults[2].Reason.find("118.70 is also on line 4"), 0U);
    ASSERT_EQ(review.Feeds.size(), 11U); // those behind the broken lines too
    EXPECT_EQ(review.Feeds[1].Line, 7);
}

TEST(CatalogueReview, NamesWhatCanNeverBeHeardWhereAirportsShareFrequencies) {
    const char* text = "CYYZ|a|http://a|118.70\nEGLL|b|http://b|118.70\nEGLL|c|http://c|118.700\n"
                       "ZZZZ|d|http://d|118.70\nZZZZ|Radio|http://e|119.00\nNONE|f|http://f|119.10\n";
    const auto entry = [](std::string_view icao) {
        if (icao == "NONE") return AirportEntry::WithoutPosition;
        return icao == "ZZZZ" ? AirportEntry::Missing : AirportEntry::Complete;
    };
    for (const bool shared : {false, true}) {
        std::string faults;
        for (const auto& fault : ReviewCatalogue(text, {shared, false, entry}).Faults)
            faults += std::to_string(fault.Number) + " " + fault.Reason + "\n";
        const std::string of_both =
            "3 118.70 is also on line 2 for the same airport: only one of them will play\n"
            "4 \"ZZZZ\" is not in Airport.dat, so its distance is unknown\n";
        EXPECT_EQ(faults,
                  (shared ? "" : "2 118.70 is also on line 1: only one of them will play\n") + of_both +
                      (shared
                           ? "4 118.70 is also on line 1; without a known airport this feed is never played\n"
                           : "4 118.70 is also on line 1: only one of them will play\n") +
                      "6 \"NONE\" has no position in Airport.dat, so its distance is unknown\n");
    }
}

TEST(CatalogueReview, NamesFaultyLinesAndFeedsWithoutAChannel) {
    std::string text = "CYYZ|one bar\nCYYZ|two|bars\n";
    for (int feed = 0; feed < 761; ++feed) text += "CYYZ|x|http://a|\n";
    text += "CYYZ|stated|http://a|118.00\n";
    for (const bool skip : {false, true}) {
        const auto faults = ReviewCatalogue(text, {false, skip}).Faults;
        ASSERT_EQ(faults.size(), 5U);
        const std::string then = skip ? "left out" : "the list stops here";
        EXPECT_EQ(faults[0].Reason, "Only 1 \"|\" instead of 3: " + then);
        EXPECT_EQ(faults[1].Reason, "Only 2 \"|\" instead of 3: " + then);
        EXPECT_EQ(faults[2].Number, 761);
        EXPECT_EQ(faults[2].Reason,
                  "No free channel is left for it: state a frequency, or it can never be tuned");
    }
}

class Probe : public TempFolder {};

TEST_F(Probe, SaysWhatBecomesOfAnAddress) {
    MakeFolder("empty");
    Write("a.WAV", "");
    Write("list.wpl", "<smil><media src=\"http://nobody/\"/><media src=\"http://h/good\"/></smil>");
    Write("out.wpl", "<smil><media src=\"\\\\stranger\\a.mp3\"/></smil>");
    World world;
    world.servers = {{"/plain.m3u", {Ok + "http://h/good", IoStatus::EndOfStream}},
                     {"/good", {Ok, IoStatus::Ok}},
                     {"/moved", {"HTTP/1.0 302 x\r\nLocation: good\r\n\r\n"}},
                     {"/loop", {"HTTP/1.0 302 x\r\nLocation: loop\r\n\r\n"}},
                     {"/page", {"HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\n"}},
                     {"/noise", {Ok + std::string(70000, 'x')}},
                     {"/aac", {Ok + AacFrames(9)}},
                     {"/ogg", {Ok + "OggS"}},
                     {"/mms", {"HTTP/1.0 302 x\r\nLocation: mms://h/\r\n\r\n"}},
                     {"/quiet", {Ok}},
                     {"/list.m3u", {Ok + "#EXTM3U\nhttp://nobody/\nmoved\n", IoStatus::EndOfStream}},
                     {"/self.m3u", {Ok + "#EXTM3U\nself.m3u\n", IoStatus::EndOfStream}}};
    const std::tuple<std::string, Finding, const char*> rows[] = {
        {"http://h/moved", Finding::Redirects, "Redirected to http://h/good"},
        {"http://h/loop", Finding::Fails, "Redirects in circles"},
        {"http://h/page", Finding::Fails, "A web page, not sound"},
        {"http://h/noise", Finding::Fails, "Nothing that Quillon can play"},
        {"http://h/aac", Finding::Answers, "Plays"},
        {"http://h/ogg", Finding::Fails, "No decoder for Ogg"},
        {"http://h/mms", Finding::Fails, "Quillon cannot play that"},
        {"http://h/quiet", Finding::Fails, "The server answers, but"},
        {"http://nobody/", Finding::Fails, "Server not found"},
        {"http://h:x/", Finding::Fails, "This is no address"},
        {"", Finding::Fails, "The line has no address"},
        {"mms://h/", Finding::Fails, "Must begin"},
        {"http://h/list.m3u", Finding::Answers, "Playlist of http://h/moved: Plays"},
        {"http://h/self.m3u", Finding::Fails, "Playlist of http://h/self.m3u: Playlist of"},
        {At("list.wpl"), Finding::Answers, "Playlist of http://h/good: Plays"},
        {At("out.wpl"), Finding::Fails,
         "Playlist of \\\\stranger\\a.mp3: The playlist leads to stranger, which no feed names"},
        {"https://h/list.m3u", Finding::Answers, "Playlist of https://h/moved: Plays"},
        {"https://h/plain.m3u", Finding::Answers, "Playlist of http://h/good: Plays, not encrypted"},
        {At("none.wpl"), Finding::Fails, "There is no such file"},
        {folder + "\\", Finding::Answers, "Recordings: 1"},
        {At("empty"), Finding::Fails, "No recordings in "}};
    FakeSystem system(world);
    for (const auto& [url, kind, words] : rows) {
        const auto deadline = world.now + 11s;
        const FeedAnswer answer = AddressProbe("1", {}, system, false).Try(url);
        EXPECT_TRUE(answer.Words.starts_with(words) && answer.Kind == kind) << url << ": " << answer.Words;
        EXPECT_LE(world.now, deadline) << url;
    }
    world.has_codec = false;
    EXPECT_EQ(AddressProbe("1", {}, system, false).Try("http://h/aac").Words, "No decoder for AAC");
    EXPECT_EQ(AddressProbe("1", {}, system, false).Try("http://h/good").Words, "No decoder for MP3");
}

class Check : public Flight {
  protected:
    void Do(void (FeedCheck::*event)()) {
        program->CheckFeedsEvent([event](FeedCheck& check) { (check.*event)(); });
    }
    void Answer(const std::string& address, Finding kind) {
        probe.answers[address] = {kind, "Words"};
        Do(&FeedCheck::Poll);
    }
    std::string Shown() const {
        std::string lines;
        for (const auto& row : state().check_feeds.Rows) lines += std::to_string(row.Line) + " ";
        return lines + state().check_feeds.LabelCaption;
    }
};

TEST_F(Check, AsksEachHostForOneFeedAtATimeWhileTheCycleGoesOn) {
    Write("Quillon\\Airport.dat", "\nA,N1*00.00,E1*00.00\nB,\nEGLL,N1*00.00,E1*00.00\n");
    Start();
    Write("Quillon\\live_atc_feeds.txt", "A|a|http://one/a|\nB|Radio b|http://ONE:81/b|\nbroken|\nB|c|files|\n"
                                         "EGLL|Radio London|http://radio.example/b|\n");
    program->Run(Command::CheckFeeds);
    EXPECT_EQ(Shown(), "3 4 Tried 0 of 4. Trying: A a, B c, EGLL Radio London");
    EXPECT_EQ(state().check_feeds.Rows[1].Result,
              "\"B\" has no position in Airport.dat, so its distance is unknown");
    TuneTo("119.72");
    EXPECT_EQ(panel(3), "EGLL - London Director");
    Answer(At("Quillon\\files"), Finding::Answers);
    EXPECT_EQ(probe.trying, (std::set<std::string>{"http://one/a", "http://radio.example/b"}));
    program->Run(Command::CheckFeeds); // goes on
    Answer("http://one/a", Finding::Answers);
    clock.now += 1s;
    Answer("http://radio.example/b", Finding::Redirects);
    EXPECT_EQ(probe.trying, (std::set<std::string>{"http://ONE:81/b"}));
    clock.now += FeedCheck::LongestTry;
    Do(&FeedCheck::Poll);
    EXPECT_EQ(Shown(), "3 4 2 5 1 4 Done. Good: 2. Redirected: 1. Failed: 1. Faults in the file: 2.");
    program->CheckFeedsEvent([](FeedCheck& check) { check.SelectFeed(3); });
    EXPECT_EQ(state().form.lvwDB.Selected(), 2U);
    probe.answers.clear();
    program->Run(Command::CheckFeeds);
    for (const bool visible : {true, false}) {
        Do(&FeedCheck::Cancel);
        EXPECT_EQ(state().check_feeds.Visible, visible);
        EXPECT_EQ(Shown().substr(0, 32), "3 4 Cancelled after 0 of 4. Good");
        EXPECT_TRUE(probe.trying.empty());
    }
    program->Run(Command::CheckFeeds);
    Do(&FeedCheck::Close);
    EXPECT_TRUE(probe.trying.empty());
    DeleteFileAt(At("Quillon\\live_atc_feeds.txt"));
    program->Run(Command::CheckFeeds);
    EXPECT_FALSE(state().check_feeds.Visible);
    EXPECT_EQ(prompts.messages.back().title, "Check Feeds Error");
}

TEST_F(Check, TriesEightAtATimeAndSavesWhatItShows) {
    Start();
    std::string feeds = "EGLL|one|C:\\a|118.70\n";
    for (char host = 'a'; host <= 'j'; ++host) feeds += std::string("EGLL|Radio|http://") + host + "|\n";
    Write("Quillon\\live_atc_feeds.txt", feeds + "words|with bar\n");
    program->Run(Command::CheckFeeds);
    EXPECT_EQ(probe.trying.size(), 8U);
    for (char host = 'a'; host <= 'j'; ++host)
        Answer(std::string("http://") + host, host == 'c' ? Finding::Fails : Finding::Answers);
    EXPECT_EQ(probe.trying, (std::set<std::string>{"C:\\a"}));
    program->CheckFeedsEvent([](FeedCheck& check) { check.ShowFaultsOnly(true); });
    Answer("C:\\a", Finding::Redirects);
    const std::string shown = "Done. Good: 9. Redirected: 1. Failed: 1. Faults in the file: 1.";
    EXPECT_EQ(Shown(), "12 4 " + shown);
    Do(&FeedCheck::SaveResults);
    EXPECT_EQ(ReadFile(At("Quillon\\Check.txt")),
              "\xEF\xBB\xBF" + shown +
                  "\r\n\r\nLine 12: Only 1 \"|\" instead of 3: the list stops here (words|with bar)\r\n"
                  "Line 4: Words (EGLL Radio, http://c)\r\n");
    EXPECT_EQ(shell.opened.back(), "notepad.exe " + At("Quillon\\Check.txt"));
    program->CheckFeedsEvent([](FeedCheck& check) { check.ShowFaultsOnly(false); });
    EXPECT_EQ(Shown(), "12 4 1 2 3 5 6 7 8 9 10 11 " + shown);
}

} // namespace
