// Sound without clicks: how its samples begin, end, pause, resume and change their volume.
#include "player/Headroom.h"
#include "player/SmoothSound.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace quillon;
using namespace std::chrono_literals;

namespace {

/// Sound at 8 kHz, where a ramp is 80 samples long, and what has been taken of it.
class Smooth : public testing::Test {
  protected:
    void Take(std::size_t count) {
        Samples room(count);
        sound.Take(room);
        taken.insert(taken.end(), room.begin(), room.end());
    }
    int LargestStep() const {
        int largest = 0;
        for (std::size_t at = 1; at < taken.size(); ++at)
            largest = std::max(largest, std::abs(taken[at] - taken[at - 1]));
        return largest;
    }
    double Loud() const {
        return static_cast<double>(std::count_if(taken.begin(), taken.end(), [](int s) { return s != 0; }));
    }

    SmoothSound sound{{8000, 1}};
    Samples taken{0};
};

TEST_F(Smooth, BeginsAndRunsOutAlongRamps) {
    sound.Push(Samples(400, 8000));
    Take(390);
    EXPECT_EQ(taken[200], 8000);
    sound.Push(Samples(100, 8000)); // just in time: it had begun to end
    Take(200);
    EXPECT_TRUE(sound.IsSilent());
    sound.Push(Samples(200, 8000));
    Take(300);
    EXPECT_LE(LargestStep(), 110);
    EXPECT_NEAR(Loud(), 700, 5);
}

TEST_F(Smooth, PausesWithinARampAndResumesInItsPlace) {
    sound.Push(Samples(1000, 8000));
    Take(300);
    sound.SetPaused(true);
    Take(500);
    EXPECT_TRUE(sound.IsSilent());
    EXPECT_NEAR(static_cast<double>(sound.Length().count()), (1000 - 380) * 125, 250);
    sound.SetPaused(false, 50ms);
    Take(200);
    EXPECT_LT(taken.back(), 4100);
    Take(500);
    EXPECT_LE(LargestStep(), 110);
    EXPECT_NEAR(Loud(), 1000, 5);
}

TEST_F(Smooth, ChangesItsVolumeAlongARamp) {
    sound.SetVolume(25); // before the first sound: from there
    sound.Push(Samples(1000, 8000));
    Take(300);
    EXPECT_EQ(taken.back(), 2000);
    sound.SetVolume(100);
    Take(300);
    EXPECT_EQ(taken.back(), 8000);
    EXPECT_LE(LargestStep(), 110);
}

TEST_F(Smooth, BeginsPausedAtOnce) {
    sound.SetPaused(true, 0ms);
    sound.Push(Samples(500, 8000));
    Take(100);
    EXPECT_EQ(Loud(), 0);
}

TEST(Headroom, GrowsWhenADeviceRunsDryAndShrinksEverMoreSlowly) {
    Headroom headroom;
    const auto length = [&headroom](Headroom::Time now) {
        headroom.PlaysOn(now);
        return headroom.Length();
    };
    headroom.RanDry(100s);
    EXPECT_EQ(length(219s), 20ms);
    headroom.FoundLeft(5ms, 219s);
    EXPECT_EQ(length(220s), 10ms);
    headroom.FoundLeft(2ms, 220s);
    EXPECT_EQ(length(339s), 20ms) << "nearly dry";
    EXPECT_EQ(length(340s), 10ms);
    for (int time = 0; time < 9; ++time) headroom.RanDry(400s);
    EXPECT_EQ(length(3999s), 160ms);
    EXPECT_EQ(length(4000s), 80ms);
}

} // namespace
