// The catalogue: its file and encodings, its loading into the list, the folders it lies in, and the trace log.
#include "Fakes.h"
#include "TempFolder.h"
#include "catalogue/DefaultFeeds.h"
#include "catalogue/FeedFile.h"
#include "catalogue/FeedLoader.h"
#include "ports/TextFile.h"
#include "settings/Folders.h"
#include "settings/TraceLog.h"

using namespace quillon;
using namespace std::string_literals;

namespace {

using Messages = std::vector<FakePrompts::Shown>;
const std::string Mark = "\xEF\xBB\xBF";

class Catalogue : public TempFolder {
  protected:
    Catalogue() {
        state.folders = {"", folder + "\\", folder + "\\ATC\\"};
        state.marks.SkipFaultyLines = false;
    }

    /// Loads a catalogue of that content; returns the list's rows as "ICAO/City/Freq/URL;".
    std::string Load(std::string_view content) {
        Write(CatalogueName, content);
        return Load();
    }

    std::string Load() {
        loader.LoadList();
        std::string rows;
        for (const FeedRecord& r : state.form.lvwDB.Items())
            for (const auto& [field, end] :
                 {std::pair{r.ICAO, "/"}, {r.City, "/"}, {r.Freq, "/"}, {r.URL, ";"}})
                rows.append(field) += end;
        return rows;
    }

    /// The boxes when both passes over the file fail.
    static Messages BothReport(const std::string& first, const std::string& second, const std::string& error) {
        return {{"Load User Frequency Error", first + "\r" + error, Icon::Critical},
                {"LoadList Error", second + "\r" + error, Icon::Critical}};
    }

    ProgramState state;
    FakePrompts prompts;
    FakeShell shell;
    FakeCodePage page;
    FakePlayer player;
    ErrorTrap trap{state.StartupStep, state.MessageText, prompts.AsReport()};
    FeedLoader loader{state,
                      prompts,
                      page,
                      player,
                      trap,
                      [this] { ++kept; },
                      [this](const LoadReport& told) { report = told; }};
    LoadReport report;
    int kept = 0; ///< times that the marks were
    ListView& list = state.form.lvwDB;
};

TEST(FrequencyPool, LosesNothingButItsOwnChannels) {
    FrequencyPool pool;
    LoadFrequencies(pool);
    for (const char* none : {"118.01", "118,00", "136.97", "117.95", "11:.00", "18.00", "118.0 ", ""})
        RemFreq(pool, none);
    EXPECT_TRUE(pool.Free.all());
}

TEST_F(Catalogue, FaultyLinesAreLeftOutIfTheUserWishes) {
    std::string text = "CYYZ|one bar\r\nCYYZ|a|http://a|118.70\r\nCYYZ|two|bars\r\nCYYZ|b|http://b|118.75\r\n";
    for (const bool yes : {false, true}) {
        state.marks = {};
        prompts = {};
        prompts.yes = yes;
        Load(text);
        EXPECT_EQ(prompts.messages.size(), 2U) << "as ever";
        EXPECT_EQ(prompts.questions.size(), 1U);
        EXPECT_EQ(state.marks.SkipFaultyLines, yes);
        EXPECT_EQ(list.Items().size(), yes ? 2U : 0U);
        EXPECT_EQ(report.LinesLeftOut, yes ? 2U : 0U);
        EXPECT_EQ(std::exchange(kept, 0), 1);
        Load(text);
        EXPECT_EQ(prompts.messages.size(), yes ? 2U : 4U);
        EXPECT_EQ(prompts.questions.size(), 1U) << "asked once";
    }
    text.clear();
    for (int feed = 0; feed < 761; ++feed) text += "CYYZ|x|http://a|\r\n";
    prompts.messages.clear();
    EXPECT_TRUE(Load(text).ends_with("CYYZ/x/136.95/http://a;CYYZ/x//http://a;CYYZ/x//http://a;"));
    EXPECT_EQ(report.WithoutChannel, 2U);
    EXPECT_EQ(prompts.messages, Messages{}) << "no error";
}

TEST_F(Catalogue, LinesBecomeRowsAndMissingFrequenciesTheLowestFreeOnes) {
    const std::tuple<const char*, std::string, std::string> rows[] = {
        {"comments and lines without a bar", "//\r\n// a|b|c|d\r\n\r\nx\r\nA|b|u|121.70\r\n", "A/b/121.70/u;"},
        {"stated before given", "A|a|u|\r\nB|b|u|\r\nC|c|u|118.00\r\n",
         "A/a/118.02/u;B/b/118.05/u;C/c/118.00/u;"},
        {"six characters only", "A|a|u|118.7\r\nB|b|u|118.7000\r\nC|c|u|118.0 ",
         "A/a/118.00/u;B/b/118.02/u;C/c/118.0 /u;"},
        {"or seven that name a channel", "A|a|u|118.002\r\nB|b|u|118.025\r\nC|c|u|118,005\r\nD|d|u|118.305",
         "A/a/118.00/u;B/b/118.025/u;C/c/118.05/u;D/d/118.305/u;"},
        {"characters, not bytes", "A|a|u|118.7\xC3\xBC", "A/a/118.7\xC3\xBC/u;"},
        {"a fourth bar belongs to the frequency", "A|a|u|118.0|", "A/a/118.0|/u;"},
        {"blanks are kept", " A | b |u |118.00", " A / b /118.00/u ;"},
        {"LF ends, and none at the end", "A|a|u|118.00\nB|b|u|118.02", "A/a/118.00/u;B/b/118.02/u;"},
        {"byte-order mark", Mark + "A|a|u|118.00\r\n", "A/a/118.00/u;"},
        {"the code page's bytes", "A|M\xFCn \x80|u|118.00\r\n", "A/M\xC3\xBCn \xE2\x82\xAC/118.00/u;"},
    };
    for (const auto& [rule, content, loaded] : rows) {
        EXPECT_EQ(Load(content), loaded) << rule;
        EXPECT_EQ(prompts.messages, Messages{}) << rule;
        EXPECT_EQ(state.StartupStep + state.MessageText, "") << rule;
    }
}

TEST_F(Catalogue, EachEqualNeighbourIsOneDuplicateBox) {
    Load("A|a|u|121.70\r\nB|b|u|121.705\r\nC|c|u|121.700\r\nD|d|u|121.70\r\n");
    EXPECT_EQ(list.Items().size(), 4U);
    EXPECT_EQ(state.lstUFreq, (std::vector<std::string>{"121.70", "121.70", "121.70", "121.705"}));
    const FakePrompts::Shown box{"Duplicate Frequency", "Frequency 121.70 is duplicated!\r", Icon::Information};
    EXPECT_EQ(prompts.messages, (Messages{box, box}));
    EXPECT_EQ(state.MessageText, "");
}

TEST_F(Catalogue, ManyDuplicatesAreToldInFewBoxesAndAskedAboutOnce) {
    std::string content;
    for (int i = 0; i < 50; ++i)
        for (const char* airport : {"A", "B"})
            content += std::string(airport) + "|a|u|1" + std::to_string(20 + i / 10) + "." +
                       std::to_string(i % 10) + "0\r\n";
    for (const bool yes : {false, true}) {
        state.marks = {};
        prompts = {};
        prompts.yes = yes;
        Load(content);
        ASSERT_EQ(prompts.messages.size(), 4U);
        EXPECT_EQ(prompts.messages[2].text, "Frequency 120.20 is duplicated!\r");
        const std::string& rest = prompts.messages[3].text;
        EXPECT_EQ(rest.find("47 more frequencies are duplicated:\r120.30, 120.40,"), 0U) << rest;
        EXPECT_TRUE(rest.ends_with("122.20 and 27 more")) << rest;
        EXPECT_EQ(prompts.questions.size(), 1U);
        EXPECT_EQ(state.marks.SharedFrequencies, yes);
        EXPECT_EQ(std::exchange(kept, 0), 1) << "the answer is kept at once";
        prompts = {};
        Load(content + (yes ? "B|b|u|120.00\r\n" : ""));
        EXPECT_EQ(prompts.messages.size(), yes ? 1U : 4U) << "only twice at one airport counts then";
        EXPECT_EQ(prompts.questions.size(), 0U);
    }
    state.marks = {};
    prompts = {};
    prompts.meanwhile = [this] { state.QuitRequested = true; };
    Load(content);
    EXPECT_EQ(prompts.messages.size() + prompts.questions.size(), 1U);
}

TEST_F(Catalogue, TooFewBarsAreReportedTwiceAndKeepTheRowsBefore) {
    for (const std::string line : {"x|y", "x|y|z"}) {
        prompts.messages.clear();
        state.feed = {"i", "c", "f", "u"};
        EXPECT_EQ(Load("A|a|u|118.00\r\n" + line + "\r\nB|b|u|118.02\r\n"), "A/a/118.00/u;");
        EXPECT_EQ(prompts.messages, BothReport("Data: " + line, "Getting Data: " + line,
                                               "Error 5 Invalid procedure call or argument"));
        const FeedState& feed = state.feed;
        EXPECT_EQ(feed.FeedIcao + feed.FeedCity + feed.FeedFrequency + feed.FeedUrl, "");
    }
}

TEST_F(Catalogue, MissingFileOrFolderInItsPlaceEmptiesTheList) {
    const std::string step = "Opening " + At(CatalogueName);
    Load("A|a|u|118.00\r\n");
    DeleteFileAt(At(CatalogueName));
    EXPECT_EQ(Load(), "");
    EXPECT_EQ(prompts.messages, BothReport(step, step, "Error 53 File not found"));
    prompts.messages.clear();
    MakeFolder(CatalogueName);
    EXPECT_EQ(Load(), "");
    EXPECT_EQ(prompts.messages, BothReport(step, step, "Error 75 Path/File access error"));
}

TEST_F(Catalogue, NamesTheServersWhoseFilesPlaylistsMayOpen) {
    Load("A|a|\\\\NAS\\music\\|\r\nA|b|http://h/|\r\nA|c|C:\\music\\|\r\nA|d|//other/x.wpl|\r\n");
    EXPECT_EQ(player.file_servers, (FileServers{"nas", "other"}));
}

TEST_F(Catalogue, FirstLoadCanSortByFrequencyAndPickEdmonton) {
    loader.FirstListLoad = true;
    Load("CYEE|a|u|136.95\r\nA|b|u|118.02\r\nCYEE2|c|u|121.70\r\n");
    EXPECT_FALSE(loader.FirstListLoad);
    EXPECT_EQ(list.Selected(), 1U);
    EXPECT_EQ(list.Items()[1].ICAO, "CYEE2");
    EXPECT_EQ(state.form.ListFocusRequest, 1U);
}

TEST_F(Catalogue, AppendingKeepsTheEncodingWhileItCan) {
    const std::string u = "\xC3\xBC";        // in Windows-1252 "\xFC"
    const std::string east = "\xE6\x9D\xB1"; // not in it
    const std::tuple<const char*, std::string, std::string, std::string> rows[] = {
        {"UTF-8 stays", u + "\r\n", east, u + "\r\n" + east + "\r\n"},
        {"the code page stays", "\xFC\r\n", u, "\xFC\r\n\xFC\r\n"},
        {"the code page lacks a character", "\xFC\r\n", east, u + "\r\n" + east + "\r\n"},
        {"an open last line is ended", "a\nb", "c", "a\nb\r\nc\r\n"},
        {"a half line end is completed", "a\r", "c", "a\r\nc\r\n"},
        {"empty", "", "c", "c\r\n"},
        {"byte-order mark", Mark, u, Mark + u + "\r\n"},
    };
    for (const auto& [rule, before, line, after] : rows) {
        Write("f.txt", before);
        AppendLines(At("f.txt"), {line}, page);
        EXPECT_EQ(Read("f.txt"), after) << rule;
    }
    AppendLines(At("new.txt"), {"a", "b"}, page);
    EXPECT_EQ(Read("new.txt"), "a\r\nb\r\n");
}

TEST_F(Catalogue, WhatAnotherProgramWritesWhileALineIsAddedIsKept) {
    struct SavingEditor : FakeCodePage {
        std::function<void()> save;
        std::optional<std::string> Encode(std::string_view text) override {
            return save(), FakeCodePage::Encode(text);
        }
    } editor;
    editor.save = [&] { Write("f.txt", "\xE9 and more\r\n"); };
    Write("f.txt", "\xE9\r\n");
    AppendLines(At("f.txt"), {"a"}, editor);
    EXPECT_EQ(Read("f.txt"), "\xE9 and more\r\na\r\n");
}

TEST_F(Catalogue, DefaultFeedsAreAddedOnceWhenTorontoIsMissing) {
    const auto add = [this] { AddDefaultFeeds(state.folders, state.StartupStep, page); };
    EXPECT_THROW(add(), RuntimeError) << "no catalogue";
    const std::string waves = folder + "\\ATC\\";
    const std::string toronto = "CYYZ|Wav - Toronto ON - Tower Pearson Intl|" + waves + "CYYZ_T|";
    const std::string perth = "YPPH|Wav - Perth Australia - Approach|" + waves + "Kestrune - YPPH_A|\r\n";
    const std::string los_angeles =
        "KLAX|Wav - Los Angeles - Tower|" + waves + "Kestrune-Los Angeles-Tower|\r\n";
    const std::string title = "//\r\n// Pre-Recorded Wave Files\r\n";
    Write(CatalogueName, perth);
    add();
    EXPECT_EQ(Read(CatalogueName), perth + title + toronto + "\r\n" + perth + los_angeles);
    EXPECT_EQ(state.StartupStep, "Adding Waves to " + At(CatalogueName));

    for (const std::string& content : {"// x" + toronto + "118.00", "\xFC"s}) {
        Write(CatalogueName, content);
        add(); // in the second file, in the code page, among them the folder's name
        const std::string before = Read(CatalogueName);
        add();
        EXPECT_EQ(Read(CatalogueName), before);
        EXPECT_EQ(state.StartupStep, "Opening " + At(CatalogueName));
    }
}

TEST_F(Catalogue, FoldersAreTheFirstThatExist) {
    shell.application_data = folder;
    Folders& found = state.folders;
    const std::string first = At("one\\");
    const std::string second = At("two\\");
    const auto find = [&] { return FindFolders(found, state.StartupStep, {first, second}); };
    EXPECT_TRUE(FindHome(found, shell));
    EXPECT_FALSE(find());
    EXPECT_EQ(found.AppPath, TextOf(std::filesystem::current_path()) + "\\");
    EXPECT_EQ(found.DataPath, folder + "\\");
    MakeFolder("two");
    MakeFolder("Quillon");
    EXPECT_TRUE(find());
    EXPECT_EQ(found.AppPath, second);
    EXPECT_EQ(found.WavePath, At("Quillon\\ATC\\"));
    MakeFolder("one");
    find();
    EXPECT_EQ(found.AppPath, first);
}

TEST_F(Catalogue, FoldersWithoutDriveOrServerAreInTheDataFolder) {
    const std::pair<const char*, const char*> rows[] = {{"ATC\\EGLL_T\\", "D:\\Data\\ATC\\EGLL_T\\"},
                                                        {"..\\rec", "D:\\Data\\..\\rec"},
                                                        {"C:rec", "C:rec"},
                                                        {"\\\\nas\\rec", "\\\\nas\\rec"},
                                                        {"lists\\a.wpl", "lists\\a.wpl"},
                                                        {"http://a.example/", "http://a.example/"},
                                                        {"mms://a.example/", "mms://a.example/"},
                                                        {"", ""}};
    state.folders.DataPath = "D:\\Data\\";
    for (const auto& [url, found] : rows) EXPECT_EQ(FolderOfRecordings(state.folders, url), found);
}

TEST_F(Catalogue, TraceLogGrowsByLinesAndStartsSmall) {
    TraceLog log(state.folders);
    log.Clear();
    log.WriteLog("one");
    log.WriteLog("two");
    log.Clear();
    EXPECT_EQ(Read("Trace.log"), "one\r\ntwo\r\n") << "10 bytes are kept";
    log.WriteLog("");
    log.Clear();
    EXPECT_FALSE(FExists(At("Trace.log")));
    log.Clear();
    EXPECT_TRUE(FExists(At("Trace.log")));
}

} // namespace
