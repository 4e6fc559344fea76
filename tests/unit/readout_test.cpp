// What becomes of the simulator's bytes and the clock's times.
#include "FakeSimulator.h"
#include "Fakes.h"
#include "simlink/RadioReadout.h"
#include "simlink/SimConnection.h"
#include "state/Services.h"

#include <gtest/gtest.h>

using namespace quillon;

namespace {

TEST(DegreesText, IsFixedAndAlwaysHasAPoint) {
    const std::pair<double, const char*> rows[] = {
        {45, "45.0"},    {0.00002, "0.00002"}, {-33.9461, "-33.9461"},  {0, "0.0"},
        {-1e-14, "0.0"}, {179.5, "179.5"},     {-19324.25, "-19324.25"}};
    for (const auto& [degrees, text] : rows) EXPECT_EQ(DegreesText(degrees), text);
}

TEST(RadioReadout, ReadsRadioPauseAndPosition) {
    FakeSimulator simulator;
    FakeClock clock;
    FsuipcClient link(simulator, simulator, clock);
    std::uint32_t result = 0;
    RadioReadout readout(link);
    ASSERT_TRUE(link.FsuipcOpen(0, result));

    EXPECT_FALSE(readout.Read(0, result).Radio());
    simulator.Put(0x0264, 1);
    EXPECT_EQ(readout.Read(0, result).PauseState(), 1);
    simulator.Put(0x0264, 0x0102);
    EXPECT_EQ(readout.Read(0, result).PauseState(), 12);
    simulator.Put(0x0264, 0xFFFF);
    EXPECT_THROW(readout.Read(0, result).PauseState(), RuntimeError);

    // The low part: a quarter of a unit is 0x40000000, and counts ten times that.
    simulator.Put(0x0564, 1000175);
    simulator.Put(0x0560, 0x40000000);
    simulator.Put(0x056C, static_cast<std::uint32_t>(-0x40000000));
    simulator.Put(0x0568, 0);
    EXPECT_NEAR(readout.Read(0, result).Position().latitude.value(), 9 + 2.5 * 90 / 10001750, 1e-9);
    EXPECT_EQ(DegreesText(readout.Read(0, result).Position().longitude.value()), "-90.0");
    simulator.Put(0x0568, 0x40000000);
    EXPECT_NEAR(readout.Read(0, result).Position().longitude.value(), -90 - 2.5 * 360 / 4294967296.0, 1e-9);
    simulator.Put(0x0564, static_cast<std::uint32_t>(-1000175));
    EXPECT_NEAR(readout.Read(0, result).Position().latitude.value(), -9 - 2.5 * 90 / 10001750, 1e-9);

    simulator.running = false;
    EXPECT_FALSE(readout.ReadRadio(0x034E, result) || readout.Read(0x034E, result).Radio());
    EXPECT_FALSE(readout.Read(0, result).PauseState());
    EXPECT_FALSE(readout.Read(0, result).Position().latitude);
}

TEST(SimConnection, KnowsWhichModulesAreTooOld) {
    EXPECT_EQ(VersionText(0x34560000), "3.456");
    EXPECT_EQ(VersionText(0x34560001), "3.456a");
    const std::array<const char*, 3> rows[] = {{"FSX", "3.999", "Quillon for FSX requires Version 4.0"},
                                               {"FSX", "4.000", ""},
                                               {"FS9", "2.840", ""},
                                               {"FS9", "2.839z", "Quillon requires Version 2.8.4.2"},
                                               {"Prepar3D", "3.000", ""}};
    for (const auto& [simulator, version, needs] : rows) {
        const std::string text = TooOldText(simulator, version);
        EXPECT_EQ(text.empty(), *needs == '\0') << version;
        EXPECT_EQ(text.rfind(needs, 0), 0U) << text;
    }
    EXPECT_EQ(
        TooOldText("FS9", "2.839"),
        std::string("Quillon requires Version 2.8.4.2 or greater of FSUIPC Module.  Your present version is "
                    "2.839\r\rYou can get the latest version of FSUIPC at ") +
            services::FsuipcDownload +
            "  It canalso be found on most of your favourite FlightSim sites.\r\rSorry!");
}

TEST(Waits, CountTimeOrSecondsOfTheClock) {
    FakeClock clock;
    clock.now = TimePoint(std::chrono::milliseconds(10'900));
    WaiT(clock, 1); // the next second is near
    EXPECT_LT(clock.now, TimePoint(std::chrono::milliseconds(11'050)));
    const TimePoint start = clock.now;
    Pause(clock, 2);
    EXPECT_GE(clock.now - start, std::chrono::seconds(2));

    int slices = 0;
    clock.events = [&] {
        if (++slices == 2) clock.now -= std::chrono::hours(1); // the user sets the clock back
        return true;
    };
    Pause(clock, 2);
    EXPECT_LT(slices, 300);
    clock.events = [] { return false; };
    const TimePoint before = clock.now;
    Pause(clock, 100);
    EXPECT_LT(clock.now - before, std::chrono::seconds(1));
}

} // namespace
