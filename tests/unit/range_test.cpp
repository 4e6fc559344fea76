// Airports, and whether the aircraft is in range of the feed's airport.
#include "Flight.h"
#include "geo/Airports.h"

using namespace quillon;

namespace {

using Shown = FakePrompts::Shown;

class AirportFile : public TempFolder {
  protected:
    ProgramState state;
    FakePrompts prompts;
    ErrorTrap trap{state.StartupStep, state.MessageText, prompts.AsReport()};
    FakeCodePage page;
    Airports airports{state.Airports, page, trap};
};

TEST_F(AirportFile, KeepsTheTextOfEveryLine) {
    using namespace std::string_literals;
    Write("Airport.dat", "\xEF\xBB\xBFICAO,x\r\n KJFK,N \r\r\n\nEGLL\n\0,\xFF\r\nlast\r"s);
    airports.LoadAirports(At(""));
    EXPECT_EQ(state.Airports.Lines(),
              (std::vector{"ICAO,x"s, " KJFK,N \r"s, ""s, "EGLL"s, "\0,\xC3\xBF"s, "last"s}));
    EXPECT_EQ(state.StartupStep, "");
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(AirportFile, ThatCannotBeReadIsReported) {
    const std::string step = "Opening " + At("Airport.dat") + "\rError ";
    airports.LoadAirports(At(""));
    MakeFolder("Airport.dat");
    airports.LoadAirports(At(""));
    EXPECT_EQ(
        prompts.messages,
        (std::vector<Shown>{{"LoadAirports Error", step + "53 File not found", Icon::Exclamation},
                            {"LoadAirports Error", step + "75 Path/File access error", Icon::Exclamation}}));
    EXPECT_TRUE(state.Airports.Lines().empty());
}

TEST(Convert2DMS, SecondsComeFromMinutesRoundedToATenth) {
    const struct {
        std::string value, result, kept;
    } rows[] = {{"-33.9461", "-33.56.48", "-33.946"},    {"45.0", "45.00.00", "45.0"},
                {"12.9999", "12.60.00", "12.9999"},      {"0.00002", "0.00.00", "0.00002"},
                {"-122.37554", "-122.22.12", "-122.37"}, {"-.5", "-.30.00", "-.5"}};
    for (auto row : rows) {
        std::string step;
        EXPECT_EQ(Convert2DMS(row.value, step), row.result);
        EXPECT_EQ(row.value, row.kept);
        EXPECT_EQ(step, "Convert2DMS = " + row.result);
    }
}

class CalcDistance : public testing::Test, protected TickBench {
  protected:
    CalcDistance() {
        state.Airports = {{"KXYZ,N40*38.00,W073*46.00", "KXYZ,N40*38.00,W073*46.00",
                           "KABC,N50*00.00,W073*46.00", "EGLL,N51*28.00,W000*27.00",
                           "KABC2,N10*00.00,E010*00.00"}};
        state.feed.FeedIcao = "KXYZ";
        Fly("41.6333", "-73.7667"); // 60 NM north of KXYZ
    }

    void Fly(const std::string& latitude, const std::string& longitude) {
        state.radio.AircraftLatitudeText = latitude;
        state.radio.AircraftLongitudeText = longitude;
    }

    Label& label = state.form.Label2;
};

TEST_F(CalcDistance, ComparesTheMilesShownWithTheRange) {
    const auto automatic = SelectionMode::Automatic;
    const auto manual = SelectionMode::Manual;
    const struct {
        const char *rule, *latitude;
        std::int16_t range;
        SelectionMode mode;
        const char* caption;
        bool in_range;
    } rows[] = {{"nearer", "41.6333", 61, manual, "60 NM", true},
                {"equal", "41.6333", 60, automatic, "60 NM", true},
                {"farther", "41.6333", 59, automatic, "60 NM (Out of Range)", false},
                {"farther, by hand", "41.6333", 59, manual, "60 NM (Manual Mode)", false},
                {"switched off", "41.6333", 0, manual, "60 NM", true},
                {"thousands", "-10.0", 4, automatic, "3,027 NM (Out of Range)", false},
                {"thousands, equal", "-10.0", 3027, automatic, "3,027 NM", true},
                {"below a mile", "40.6433", 1, automatic, "0 NM", true}};
    for (const auto& row : rows) {
        Fly(row.latitude, "-73.7667");
        state.range = {row.range, !row.in_range, 0};
        state.cycle.Mode = row.mode;
        state.MessageText = "old";
        sim.CalcDistance();
        const std::string set = " Range set at " + std::to_string(row.range) + " Nautical Miles ";
        EXPECT_EQ(label, (Label{row.caption, row.range == 0 ? " Range Disabled " : set})) << row.rule;
        EXPECT_EQ(state.range.InRange, row.in_range) << row.rule;
        EXPECT_EQ(state.StartupStep + state.MessageText, "") << row.rule;
    }
}

TEST_F(CalcDistance, LabelSaysWhyThereIsNoDistance) {
    const struct {
        const char *rule, *icao, *latitude, *city;
        std::int16_t playlist;
        DistanceKind before;
        const char* caption;
    } rows[] = {
        {"unknown airport", "ZZZZ", "41.6333", "Town", 0, DistanceKind::None, "ICAO not found!"},
        {"position not read yet", "KXYZ", "", "Town", 0, DistanceKind::None, "ICAO not found!"},
        {"playlist", "ZZZZ", "41.6333", "Town", 5, DistanceKind::None, "Windows PlayList"},
        {"radio before playlist", "ZZZZ", "41.6333", "Town RADIO", 5, DistanceKind::None, "Net Radio"},
        {"radio is not looked up", "KXYZ", "41.6333", "Radio", 0, DistanceKind::NetRadio, "Net Radio"},
        {"label left from a radio", "KXYZ", "41.6333", "Town", 0, DistanceKind::NetRadio, "ICAO not found!"}};
    for (const auto& row : rows)
        for (const bool in_range : {false, true}) {
            state.feed.FeedIcao = row.icao;
            state.feed.FeedCity = row.city;
            state.feed.WplMarker = row.playlist;
            Fly(row.latitude, "-73.7667");
            texts.ShowDistance({row.before});
            label.ToolTipText = "tip";
            state.range = {50, in_range, 1};
            sim.CalcDistance();
            EXPECT_EQ(label, (Label{row.caption, "tip"})) << row.rule;
            EXPECT_EQ(state.range.InRange, in_range) << row.rule;
            EXPECT_EQ(state.StartupStep, "sLatitude = 0 or bFoundAirport = False") << row.rule;
        }
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(CalcDistance, WithoutAFeedNothingIsInRange) {
    state.range.ReceptionRange = 0;
    state.feed.FeedIcao = "";
    sim.CalcDistance();
    EXPECT_FALSE(state.range.InRange);
}

TEST_F(CalcDistance, SearchGoesOnlyForwardAndNeverToTheFirstLine) {
    const std::tuple<const char*, const char*, std::int32_t, std::int32_t, bool> rows[] = {
        {"the first line is a heading", "KXYZ", 0, 1, true},
        {"from the start on", "KABC", 1, 2, true},
        {"never back", "KABC", 3, 3, false},
        {"letter case", "egll", 0, 1, false},
        {"the whole code", "EGL", 1, 1, false},
        {"nothing but the code", "EGLL,N51*28.00", 1, 1, false},
        {"start behind the end", "EGLL", 99, 99, false}};
    for (const auto& [rule, icao, start, end, found] : rows) {
        state.feed.FeedIcao = icao;
        state.range.AirportSearchStart = start;
        sim.CalcDistance();
        EXPECT_EQ(state.range.AirportSearchStart, end) << rule;
        EXPECT_EQ(label.Caption != "ICAO not found!", found) << rule;
    }
}

TEST_F(CalcDistance, ReadsTheAirportsLine) {
    const std::array<const char*, 5> rows[] = {
        {"digits behind the point are seconds", "KXYZ,N10*00.50,E010*00.00", "11.0", "10.0", "58 NM"},
        {"north east", "KXYZ,N10*00.00,E010*00.00", "10.5", "10.0", "30 NM"},
        {"south west", "KXYZ,S10*00.00,W010*00.00", "-10.5", "-10.0", "30 NM"},
        {"one digit of degrees", "KXYZ,N9*00.00,W9*00.00", "9.5", "-9.0", "30 NM"},
        {"a later S means south", "KXYZ,N10*00.00,E010*00.00,USA", "-10.5", "10.0", "30 NM"},
        {"letters of the code mean nothing", "SWSW,N10*00.00,E010*00.00", "10.5", "10.0", "30 NM"},
        {"aircraft just south of 0 counts as 0", "KXYZ,N01*00.00,E010*00.00", "-0.5", "10.0", "59 NM"},
        {"airport within a degree counts as 0", "KXYZ,N00*30.00,W000*30.00", "1.0", "0.5", "59 NM"},
        {"aircraft's minutes may round up to 60", "KXYZ,N10*00.00,E010*00.00", "10.9999", "10.0", "59 NM"}};
    for (const auto& [rule, line, latitude, longitude, caption] : rows) {
        state.feed.FeedIcao = std::string(line, 4);
        Fly(latitude, longitude);
        state.Airports = {{"", line}};
        state.range = {100, false, 1};
        sim.CalcDistance();
        EXPECT_EQ(label.Caption, caption) << rule;
    }
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(CalcDistance, BadLinesAreReportedOnceAndLeaveLabelAndRangeAlone) {
    using namespace std::string_literals;
    const std::string departure = "Calculating Departure lat and lon\rError ";
    const std::string no_call = departure + "5 Invalid procedure call or argument";
    const std::string no_number = departure + "13 Type mismatch";
    const std::array<std::string, 3> rows[] = {
        {"KXYZ,", "41.6333", no_call},
        {"KXYZ,N4038.00,W07346.00", "41.6333", no_call},
        {"KXYZ,N40*3800,W073*4600", "41.6333", no_call},
        {"KXYZ,N40*38.00,W073*4600", "41.6333", no_call},
        {"KXYZ,Sxx*38.00,W073*46.00", "41.6333", no_number},
        {"KXYZ,N40*38.00,W*46.00", "41.6333", no_number},
        {"KXYZ,N95*00.00,E010*00.00", "41.6333", ""},
        {"KXYZ,N40*38.00,W073*46.00", "40.6333", ""},
        {"KXYZ,N40*38.00,W073*46.00", "41", "Calc Degree\rError 5 Invalid procedure call or argument"},
        {"KXYZ,N00*30.00,W074*46.00", "-0.5", "Calculating flight distance\rError 11 Division by zero"}};
    for (const auto& [line, latitude, report] : rows)
        for (const bool in_range : {false, true}) {
            state.Airports = {{"", line}};
            state.range = {50, in_range, 1};
            label = {"caption", "tip"};
            prompts.messages.clear();
            for (int tick = 0; tick < 2; ++tick) {
                Fly(latitude, "-73.7667");
                sim.CalcDistance();
            }
            EXPECT_EQ(label, (Label{"caption", "tip"})) << line;
            EXPECT_EQ(state.range.InRange, in_range) << line;
            std::vector<Shown> reports;
            if (!report.empty()) reports = {{"CalcDistance Error", report, Icon::Exclamation}};
            EXPECT_EQ(prompts.messages, reports) << line;
            trap.Run("CalcDistance Error", Icon::Exclamation, [] {});
        }
}

} // namespace
