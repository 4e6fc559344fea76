#include "Flight.h"
#include "app/AddFeedKeys.h"
#include "state/Services.h"

namespace quillon {
namespace {

using enum AddBox;
using enum SourceKind;

class Upkeep : public Flight {
  protected:
    Upkeep() {
        Start();
        Tick();
    }
    const frmAddATC& form() const { return state().add_feed; }
    void Type(AddBox box, const std::string& text) {
        program->AddFeedEvent([&](AddFeed& dialog) { dialog.SetText(box, text); });
    }
    void Choose(SourceKind kind) {
        program->AddFeedEvent([&](AddFeed& dialog) { dialog.ChooseKind(kind); });
    }
    void Do(void (AddFeed::*event)()) {
        program->AddFeedEvent([event](AddFeed& dialog) { (dialog.*event)(); });
    }
    void Add() { Do(&AddFeed::cmdAdd_Click); }
    void Close() { Do(&AddFeed::cmdCancel_Click); }
    std::string file() const { return Read("Quillon\\live_atc_feeds.txt"); }
};

TEST(EntryRules, TheFirstBrokenRuleIsNamedWithItsPlace) {
    const std::string digits =
        "Invalid Frequency format!\r\rFlight Simulator only alows the numbers 0,2,5,7 as the "
        "last digit of a Comm frequency.";
    const std::string format = "Invalid Frequency format!  Frequency must be entered as ###.##";
    const std::string city = "Missing Data! Please enter a City name";
    const std::string icao = "Invalid ICAO format!  ICAO must be 3 or 4 characters";
    const struct {
        SourceKind kind;
        std::array<std::string, 4> texts; // ICAO, city, URL, frequency
        std::string text;                 // empty: a good entry
        frmAddATC::Focus where;
    } rows[] = {
        {LiveATC, {"EG", "", "", "1"}, icao, {txtICAO, 0, 4}},
        {LiveATC, {"EGLLX", "", "", ""}, icao, {txtICAO, 0, 4}},
        {LiveATC, {"EGLL", "", "u", "118.52"}, "", {}},
        {LiveATC, {"EGL", "c", "u", ""}, "", {}},
        {LiveATC, {"EGLL", "", "u", ""}, city, {txtCity, 0, 0}},
        {InternetRadio, {"EGLL", "Radio - ", "u", ""}, city, {txtCity, 8, 0}},
        {InternetRadio, {"EGLL", "", "u", ""}, "", {}},
        {WaveFiles, {"EGLL", "Wav - ", "u", ""}, city, {txtCity, 6, 0}},
        {PlayLists, {"EGLL", "", "u", ""}, "", {}},
        {LiveATC, {"EGLL", "", "u", "12"}, format, {txtFreq, 0, 0}},
        {LiveATC, {"EGLL", "", "u", "123456"}, digits, {txtFreq, 0, 0}},
        {LiveATC, {"EGLL", "", "u", "1e9999"}, digits, {txtFreq, 0, 0}},
        {LiveATC, {"EGLL", "", "u", "118.53"}, digits, {txtFreq, 0, 0}},
        {LiveATC, {"EGLL", "", "u", "117.95"}, digits, {txtFreq, 0, 0}},
        {LiveATC, {"EGLL", "", "u", "137.00"}, digits, {txtFreq, 0, 0}},
        {LiveATC, {"EGLL", "", "u", "118.00"}, "", {}},
        {LiveATC, {"EGLL", "", "u", "136.97"}, "", {}},
        {LiveATC, {"EGLL", "", "u", "136.990"}, "", {}},
        {LiveATC, {"EGLL", "", "u", "118.302"}, digits, {txtFreq, 0, 0}},
        {LiveATC, {"EGLL", "", "u", "121.500"}, "Frequency 121.500 is already in use!", {txtFreq, 0, 7}},
        {LiveATC, {"EGLL", "", "u", "121.50"}, "Frequency 121.50 is already in use!", {txtFreq, 0, 6}},
    };
    for (const auto& row : rows) {
        frmAddATC form;
        form.Kind = row.kind;
        form.Texts = row.texts;
        form.lstAdd = {{"121.50", "CYYZ"}};
        const auto fault = FindFault(form);
        SCOPED_TRACE(row.texts[0] + "|" + row.texts[1] + "|" + row.texts[3]);
        EXPECT_EQ(fault ? fault->Text : "", row.text);
        if (!fault) continue;
        EXPECT_EQ(fault->Where.Box, row.where.Box);
        EXPECT_EQ(fault->Where.SelStart, row.where.SelStart);
        EXPECT_EQ(fault->Where.SelLength, row.where.SelLength);
    }
    for (const auto& [box, text] :
         {std::pair(txtURL, "a|b"), std::pair(txtCity, "a\r\nEGLL|x|y|"), std::pair(txtICAO, "//A")}) {
        frmAddATC form;
        form.Texts = {"EGLL", "c", "u", ""};
        form[box] = text;
        EXPECT_EQ(FindFault(form).value_or(EntryFault{}).Title, "Invalid character") << text;
    }
}

TEST(EntryKeys, EachBoxLetsItsOwnKeysThrough) {
    const struct {
        AddBox box;
        int key;
        int gives;
        std::string text = "x";
        int previous = 'x';
    } rows[] = {
        {txtICAO, 'k', 'K'},       {txtICAO, '-', RefusedKey}, {txtICAO, '0', '0'},
        {txtICAO, 8, 8},           {txtICAO, 22, 22},          {txtFreq, '1', '1'},
        {txtFreq, '.', '.'},       {txtFreq, ' ', ' '},        {txtFreq, 'a', RefusedKey},
        {txtFreq, 8, 8},           {txtFreq, 15, RefusedKey},  {txtFreq, 16, 16},
        {txtCity, 'a', 'a'},       {txtCity, 'a', 'A', ""},    {txtCity, 'a', 'A', "New ", ' '},
        {txtCity, 0xE9, 0xC9, ""}, {txtCity, 12, RefusedKey},  {txtCity, 13, 13},
        {txtCity, 22, 22},         {txtURL, '?', '?'},         {txtURL, '<', RefusedKey},
        {txtURL, '=', '='},        {txtURL, '>', RefusedKey},  {txtURL, '@', '@'},
        {txtURL, 'a', 'a', ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(KeyPress(row.box, row.key, row.text, row.previous), row.gives)
            << static_cast<int>(row.box) << " " << row.key;
}

TEST(EntryRules, AFrequencyIsCompletedToTwoDecimals) {
    for (const auto& [typed, completed] : {std::pair("118", "118.00"), {"118.", "118.00"}, {"118.1", "118.10"}})
        EXPECT_EQ(CompletedFrequency(typed), completed);
    for (const std::string other : {"", "11", "118.10", "118.305", "1181", "118,1", "11a", "118.1x"})
        EXPECT_EQ(CompletedFrequency(other), other);
}

TEST_F(Upkeep, AnUnknownAirportIsNotedBesideItsBox) {
    program->Run(Command::mnuAddATC);
    for (const auto& [icao, note] : {std::pair("QQ", ""),
                                     {"QQQQ", "Not in Airport.dat: distance unknown"},
                                     {"EGLL", ""},
                                     {"QQQ", "Not in Airport.dat: distance unknown"}}) {
        Type(txtICAO, icao);
        EXPECT_EQ(form().AirportNote, note) << icao;
    }
    Choose(WaveFiles);
    for (const auto& [box, text] :
         {std::pair(txtICAO, "QQQ"), {txtCity, "Wav - x"}, {txtURL, "C:\\x"}, {txtFreq, "121.50"}})
        Type(box, text);
    Add();
    EXPECT_EQ(form()[txtICAO] + form().AirportNote + form()[txtCity], "Wav - ") << "the next one begins";
}

TEST_F(Upkeep, AnAddressIsTriedUntilItChanges) {
    program->Run(Command::mnuAddATC);
    Type(txtURL, "b.wpl");
    Do(&AddFeed::TestAddress);
    Do(&AddFeed::Poll);
    EXPECT_EQ(form().TestCaption, "Trying the address ...");
    probe.answers = {{"b.wpl", {Finding::Fails, "No answer"}}};
    Do(&AddFeed::Poll);
    Type(txtCity, "x");
    EXPECT_EQ(form().TestCaption, "No answer");
    Do(&AddFeed::TestAddress);
    Type(txtURL, "c.wpl");
    Do(&AddFeed::Poll);
    EXPECT_EQ(form().TestCaption, "") << "the answer is another address's";
    Do(&AddFeed::TestAddress);
    EXPECT_EQ(probe.trying, std::set<std::string>{"c.wpl"});
    Close();
    EXPECT_TRUE(probe.trying.empty());
}

TEST_F(Upkeep, EachKindPresetsItsBoxes) {
    program->Run(Command::mnuAddATC);
    EXPECT_NE(form().PromptCaption, "");
    EXPECT_EQ(form()[txtURL], services::LiveAtcFeedPrefix);
    Choose(InternetRadio);
    EXPECT_EQ(form()[txtURL] + form()[txtCity], std::string(services::LiveAtcFeedPrefix) + "Radio - ");
    Choose(LiveATC);
    EXPECT_EQ(form()[txtURL] + form()[txtCity], "http://");
    Choose(WaveFiles);
    EXPECT_EQ(form()[txtURL] + form()[txtCity], "Wav - ");
    prompts.answer = "C:\\rec\\one\\a.wav";
    Do(&AddFeed::cmdBrowse_Click);
    EXPECT_EQ(form()[txtURL] + form()[txtCity], "C:\\rec\\one\\Wav - ");
    EXPECT_TRUE(form().cmdBrowseVisible);
    prompts.answer = "";
    Do(&AddFeed::cmdBrowse_Click);
    EXPECT_EQ(form()[txtURL], "C:\\rec\\one\\") << "a cancelled file dialog";
}

TEST_F(Upkeep, AnAddedFeedIsALineAndIsTunedTo) {
    Write("Quillon\\live_atc_feeds.txt", "CYYZ|Toronto|http://a.example/|118.70"); // no line end
    program->Run(Command::mnuAddATC);
    EXPECT_EQ(EnabledTimers(state().cycle), "5");
    program->TimerTick(5);
    program->Run(Command::mnuRange);
    EXPECT_TRUE(prompts.asked.first.empty()) << "another command ran behind the dialog";
    Type(txtICAO, "EGLL");
    Type(txtURL, "http://b.example/");
    Type(txtFreq, "121.5");
    Add();
    EXPECT_EQ(form().AddedCaption, "Added: EGLL on 121.50. The catalogue now has 2 feeds.");
    EXPECT_EQ(form()[txtURL], services::LiveAtcFeedPrefix);
    Type(txtICAO, "EGLL");
    Type(txtFreq, "121.5");
    Add();
    EXPECT_EQ(prompts.messages.back().text, "Frequency 121.50 is already in use!");
    EXPECT_EQ(file(), "CYYZ|Toronto|http://a.example/|118.70\r\nEGLL||http://b.example/|121.50\r\n");
    Close();
    EXPECT_EQ(EnabledTimers(state().cycle), "15");
    simulator.FlyTo(51.01, -1.01);
    TuneTo("121.50");
    EXPECT_EQ(player.url, "http://b.example/");
}

TEST_F(Upkeep, AFailedWriteLeavesTheCatalogueAndSaysSo) {
    program->Run(Command::mnuAddATC);
    MakeFolder("Quillon\\live_atc_feeds.txt.new"); // stands in the way of writing
    const std::string before = file();
    Type(txtICAO, "EGLL");
    Type(txtFreq, "121.50");
    Add();
    EXPECT_EQ(file(), before);
    ASSERT_FALSE(prompts.messages.empty());
    EXPECT_NE(prompts.messages.back().text.find("EGLL||http://feeds.example/|121.50"), std::string::npos);
    EXPECT_NE(Read("Quillon\\Trace.log").find("Opening "), std::string::npos);
    EXPECT_EQ(form()[txtICAO] + form()[txtFreq], "EGLL121.50");
    EXPECT_NE(form().lstAdd.back().Frequency, "121.50") << "it may be tried again";
    EXPECT_EQ(state().StartupStep, "");
}

TEST_F(Upkeep, AFolderOfRecordingsHandsBackAfterAReload) {
    Write("Quillon\\live_atc_feeds.txt", "CYYZ|Wav - Toronto|" + folder + "\\Quillon\\ATC\\CYYZ_T|118.70\r\n");
    program->Run(Command::mnuAddATC);
    Close();
    TuneTo("118.70");
    ASSERT_EQ(EnabledTimers(state().cycle), "35");
    program->Run(Command::mnuAddATC);
    Close();
    EXPECT_EQ(EnabledTimers(state().cycle), "15");
    Tick();
    EXPECT_EQ(EnabledTimers(state().cycle), "35") << "found again";
}

TEST_F(Upkeep, BackupAndRestoreKeepBothFiles) {
    const std::string mine = file();
    prompts.yes = false;
    program->Run(Command::mnuBackup);
    EXPECT_FALSE(program->CanRun(Command::mnuRestore)) << "no backup yet";
    prompts.yes = true;
    program->Run(Command::mnuBackup);
    EXPECT_TRUE(program->CanRun(Command::mnuRestore));
    EXPECT_EQ(Read("Quillon\\live_atc_feeds.bak"), mine);
    EXPECT_NE(files.stamped.find("live_atc_feeds.bak"), std::string::npos);
    Write("Quillon\\live_atc_feeds.txt", "EGLL|x|http://x.example/|121.50\r\n");
    prompts.yes = false;
    program->Run(Command::mnuRestore);
    EXPECT_NE(file(), mine) << "refused";
    EXPECT_EQ(prompts.choices, (std::vector{Choices::YesNo, Choices::YesNo, Choices::YesNoCancel}));
    prompts.yes = true;
    program->Run(Command::mnuRestore);
    EXPECT_EQ(file(), mine);
    ASSERT_EQ(files.bin.size(), 1U);
    EXPECT_EQ(state().form.lvwDB.Items().size(), 8U);
    Start();
    EXPECT_TRUE(program->CanRun(Command::mnuRestore)) << "the backup is found at the start";
}

TEST_F(Upkeep, ARestoreThatFailsLosesNothing) {
    const std::string mine = file();
    program->Run(Command::mnuBackup);
    DeleteFileAt(At("Quillon\\live_atc_feeds.bak"));
    program->Run(Command::mnuRestore);
    EXPECT_NE(prompts.messages.back().text.find("File not found: "), std::string::npos);
    EXPECT_EQ(file(), mine) << "the backup is read first";

    Write("Quillon\\live_atc_feeds.bak", "EGLL|x|http://x.example/|121.50\r\n");
    MakeFolder("Quillon\\live_atc_feeds.txt.new"); // stands in the way of writing
    program->Run(Command::mnuRestore);
    EXPECT_NE(prompts.messages.back().text.find("The old catalogue is kept in "), std::string::npos);
    EXPECT_EQ(Read("Quillon\\live_atc_feeds.old"), mine);
}

TEST_F(Upkeep, ACommandsErrorIsToldEachTimeAndTheNextCommandRuns) {
    const std::pair<Command::Id, const char*> rows[] = {
        {Command::mnuRange, "Set Range Error"},
        {Command::mnuEditData, "LoadList Error"},
        {Command::mnuPrint, "Print Data Errors"},
        {Command::HelpPages, "Unexpected error"},
    };
    prompts.answer = "99999"; // too large a range
    printer.fails_at = 1;
    shell.meanwhile = [&] { Write("Quillon\\live_atc_feeds.txt", "EGLL|x|y\r\n"); };
    for (const auto& [command, title] : rows) {
        if (command == Command::HelpPages) shell.meanwhile = [] { throw std::logic_error("x"); };
        for (int time = 0; time < 2; ++time) {
            prompts.messages.clear();
            prompts.yes = command != Command::mnuEditData; // faulty lines are not left out
            program->Run(command);
            EXPECT_TRUE(std::any_of(prompts.messages.begin(), prompts.messages.end(),
                                    [&](const auto& shown) { return shown.title == title; }))
                << title << " " << time;
        }
    }
}

TEST_F(Upkeep, EditingStopsEverythingButTheWayOut) {
    DeleteFileAt(At("Quillon\\live_atc_feeds.txt"));
    shell.ended = false;
    int slices = 0;
    clock.events = [&] {
        EXPECT_EQ(EnabledTimers(state().cycle), "5");
        program->Run(Command::mnuRange);
        program->TimerTick(5);
        shell.ended = ++slices == 3;
        return true;
    };
    program->Run(Command::mnuEditData);
    EXPECT_EQ(file(), "") << "an empty file for Notepad to open";
    EXPECT_EQ(slices, 3);
    EXPECT_TRUE(prompts.asked.first.empty());
    EXPECT_EQ(EnabledTimers(state().cycle), "15");
    EXPECT_TRUE(state().form.lvwDB.Items().empty());

    shell.meanwhile = [] { Raise(FileNotFound); };
    program->Run(Command::mnuEditData);
    EXPECT_EQ(prompts.messages.back(),
              (FakePrompts::Shown{"Edit Data Errors",
                                  "Shell Notepad and " + At("Quillon\\live_atc_feeds.txt") +
                                      "\rError 53 File not found",
                                  Icon::Exclamation}));
    shell.meanwhile = {};
    shell.ended = false;
    clock.events = [&] {
        program->Run(Command::mnuQuit);
        return false;
    };
    program->Run(Command::mnuEditData);
    EXPECT_TRUE(state().Ended);
}

} // namespace
} // namespace quillon
