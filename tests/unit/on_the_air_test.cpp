// "On the air": which feeds are around the aircraft, from where the position comes, and what a pick does.
#include "Flight.h"
#include "playback/FeedsAround.h"

#include <random>

using namespace quillon;

namespace {

using namespace std::chrono_literals;

TEST(FeedsAround, AreThoseThatAnInverseToEachAirportFinds) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> degrees(0, 8);
    std::vector<std::string> lines{"heading"}, codes;
    for (int i = 0; i < 300; ++i) {
        codes.push_back(std::to_string(1000 + i));
        lines.push_back(codes.back() + ",N" + std::to_string(48 + i % 9) + "*" + std::to_string(10 + i % 50) +
                        ".00,E00" + std::to_string(i % 8) + "*" + std::to_string(10 + i % 47) + ".00");
    }
    ListView list;
    for (const std::string& code : codes) list.Add({code, "Tower", "118.10", "http://a/"});
    AirportList airports(std::move(lines));
    AirportPositions positions(airports);
    FeedIndex index(list);
    FeedsAround around(list, index, positions);
    for (const std::int16_t range : std::initializer_list<std::int16_t>{0, 1, 30, 50, 150, 2000, -1}) {
        const GeoPoint aircraft = GeoPoint::At(48 + degrees(random), degrees(random));
        std::vector<std::pair<double, std::uint32_t>> expected, found;
        for (std::uint32_t row = 0; row < codes.size(); ++row) {
            const Sight sight = Look(aircraft, *positions.Of(codes[row])).value();
            if (range == 0 || sight.NauticalMiles() <= range) expected.emplace_back(sight.metres, row);
        }
        std::sort(expected.begin(), expected.end());
        if (range == 0) expected.resize(FeedsAround::Most);
        for (const FeedAround& feed : around.Find(aircraft, range))
            found.emplace_back(feed.Where.metres, feed.Row);
        EXPECT_EQ(found, expected) << range;
    }
}

/// Over Toronto, with two feeds there, one at Hamilton, and others that have no place or are far away.
class OnAir : public Flight {
  protected:
    OnAir() {
        Write("Quillon\\live_atc_feeds.txt", "EGLL|London|http://l/|118.70\nCYHM|Hamilton|http://h/|118.70\n"
                                             "CYTZ|Tower|http://t/|118.70\nCYTZ|Ground|http://g/|121.90\n"
                                             "CYTZ|Radio Toronto|http://r/|118.30\nCYTZ|List|a.wpl|118.35\n"
                                             "FAUL|Broken|http://b/|118.40\n|None|http://n/|118.45\n");
        Write(
            "Quillon\\Airport.dat",
            "h\nCYTZ,N43*00.00,W079*00.00\nCYHM,N43*10.00,W080*00.00\nEGLL,N51*00.00,W001*00.00\nFAUL,Sx,y\n");
    }
    void Open() { program->Run(Command::OnTheAir); }
    void Poll() {
        clock.Sleep(2s);
        program->PollOnTheAir();
    }
    const OnTheAirForm& form() const { return state().on_the_air; }
    /// The rows' cities with distance and bearing, "+" for the selected one, and the mark.
    std::string Shown() const {
        std::string text;
        for (std::size_t row = 0; row < form().Rows.size(); ++row) {
            const auto& shown = form().Rows[row];
            text += (row == form().Selected ? "+" : "") + shown.What.City + " " +
                    std::to_string(shown.NauticalMiles) + "/" +
                    std::to_string(std::lround(shown.Where.Bearing)) +
                    std::array{"", " tuned", " plays"}.at(static_cast<std::size_t>(shown.Now)) + ", ";
        }
        return text + form().StateCaption;
    }
    void SetRange(const std::string& range) {
        RunAnswering(Command::mnuRange, range);
        Poll();
    }
    static constexpr const char* NoSimulator = "No simulator is answering.";
};

TEST_F(OnAir, ListsWhatIsInRangeAsTheMainWindowMeasuresIt) {
    Start();
    Open();
    EXPECT_EQ(Shown(), "The simulator has not reported the aircraft's position yet.");
    simulator.Tune(Com2Standby, "118.70");
    simulator.FlyTo(43.01, -79.01);
    player.state = Playing;
    for (int tick = 0; tick < 3; ++tick) Tick();
    Poll();
    EXPECT_EQ(Shown(),
              "Tower 0/149 tuned, Ground 0/149, Hamilton 44/283 tuned, 3 feeds within 50 NM, nearest first.");
    program->lvwDB_ColumnClick(Column::Freq); // the rows move, and the first of the frequency is another
    SetRange("44");
    EXPECT_EQ(form().Rows.size(), 3U);
    SetRange("43");
    EXPECT_EQ(form().Rows.size(), 2U);
    EXPECT_EQ(form().Reach, 43);
    SetRange("0");
    EXPECT_EQ(form().Rows.back().What.City, "London");
    EXPECT_EQ(form().StateCaption, "The nearest 4 feeds.");
    EXPECT_NEAR(form().Reach, 3070, 60);
    simulator.FlyTo(-20, 10);
    SetRange("5");
    Tick();
    Poll();
    EXPECT_EQ(Shown(), "No feeds within 5 NM.");
}

TEST_F(OnAir, AsksForThePositionItselfWhileNoAutomaticCycleRuns) {
    Start();
    prompts.messages.clear();
    TuneTo("121.90");
    player.state = Playing;
    Tick();
    Open();
    EXPECT_EQ(Shown().substr(0, 32), "Tower 0/149, Ground 0/149 plays,");
    for (const int command : {Command::StripStop, Command::optManual}) { // muted, then in Manual mode
        program->Run(command);
        simulator.running = true;
        simulator.FlyTo(43.5, -79.01);
        Poll();
        EXPECT_EQ(form().Rows[0].NauticalMiles, 30) << command;
        const std::string link = panel(1) + panel(2) + panel(3) + distance() + state().radio.MasterFrequency;
        simulator.running = false;
        Poll();
        EXPECT_EQ(Shown(), NoSimulator);
        EXPECT_EQ(panel(1) + panel(2) + panel(3) + distance() + state().radio.MasterFrequency, link);
        EXPECT_FALSE(state().Ended || state().radio.NoConnection);
    }
    EXPECT_TRUE(state().radio.AircraftLatitudeText.starts_with("43.0"));
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(OnAir, KeepsNobodyWaitingForItsQuestion) {
    Start();
    program->Run(Command::optManual);
    background.held = true;
    Open();
    Pick(3); // what the simulator owes keeps no pick from playing
    Tick();
    EXPECT_EQ(player.url, "http://g/");
    Poll();
    EXPECT_EQ(Shown(), NoSimulator);
    background.held = false;
    background.Finish();
    EXPECT_EQ(form().Rows.size(), 3U);
    background.held = true;
    Poll();
    program->CloseOnTheAir();
    background.Finish();
    EXPECT_FALSE(form().Visible);
    Poll();
    EXPECT_FALSE(background.Busy()) << "nothing is asked behind a closed window";
}

TEST_F(OnAir, TunesOrPlaysAPickAndKeepsItSelected) {
    Write("Quillon\\Quillon.state", "shared-frequencies=yes\n");
    Start();
    TuneTo("121.90");
    Open();
    const OnTheAirForm::Feed hamilton = form().Rows[2].What;
    program->SelectOnTheAir(hamilton);
    program->PickOnTheAir(hamilton);
    player.state = Playing;
    for (int tick = 0; tick < 3; ++tick) Tick();
    EXPECT_EQ(player.url, "http://h/"); // although the tower is nearer
    EXPECT_EQ(state().form.lvwDB.Selected(), 1U);
    simulator.FlyTo(43.16, -79.9);
    Tick();
    Poll();
    EXPECT_EQ(Shown(),
              "+Hamilton 4/275 plays, Tower 40/103 tuned, Ground 40/103, 3 feeds within 50 NM, nearest first.");
    EXPECT_NEAR(form().Track.front().NauticalMiles, 40, 1);
    program->Run(Command::optManual);
    program->PickOnTheAir(form().Rows[1].What);
    Tick();
    EXPECT_EQ(player.url, "http://t/");
    program->PickOnTheAir({"CYTZ", "Gone", "", ""});
    EXPECT_EQ(state().form.lvwDB.Selected(), 2U);
    clock.Sleep(OnTheAir::TrackLength);
    Poll();
    EXPECT_EQ(form().Track.size(), 1U);
    simulator.FlyTo(51, -1.001);
    Poll();
    EXPECT_EQ(Shown(), "London 0/90, 1 feed within 50 NM, nearest first.");
}

} // namespace
