// One frequency at many airports: which of them is heard, whatever the order of the list.
#include "Flight.h"
#include "geo/GeoPoint.h"

#include <map>
#include <random>

using namespace quillon;

namespace {

struct Place {
    const char* icao;
    double latitude, longitude;
};
constexpr Place Seattle{"KSEA", 47, -122}, Rome{"LIRF", 42, 12}, NewYork{"KJFK", 41, -74};

class Shared : public Flight {
  protected:
    Shared() {
        Write("Quillon\\Airport.dat", "ICAO\r\nKSEA,N47*00.00,W122*00.00\r\nLIRF,N42*00.00,E012*00.00\r\n"
                                      "KJFK,N41*00.00,W074*00.00\r\nKLGA,N41*00.00,W073*00.00\r\n");
        Write("Quillon\\Quillon.state", "shared-frequencies=yes\n");
    }
    void FlyTo(const Place& place) { simulator.FlyTo(place.latitude + 0.01, place.longitude + 0.01); }
    std::string Heard() const { return player.state == Playing ? player.url : ""; }
};

TEST_F(Shared, EachAirportIsHeardInItsRangeInAnyOrder) {
    std::vector<std::string> lines{"KSEA|a|http://h/KSEA|118.10", "LIRF|b|http://h/LIRF|118.10",
                                   "KJFK|c|http://h/KJFK|118.10", "XXXX|d|http://h/XXXX|118.10"};
    for (int order = 0; order < 4; ++order) {
        std::rotate(lines.begin(), lines.begin() + 1, lines.end());
        std::string text;
        for (const std::string& line : lines) text += line + "\r\n";
        Write("Quillon\\live_atc_feeds.txt", text);
        Start();
        FlyTo(Seattle);
        TuneTo("118.10");
        for (const Place& place : {Seattle, Rome, NewYork}) {
            FlyTo(place);
            Tick();
            EXPECT_EQ(Heard(), std::string("http://h/") + place.icao) << order;
            EXPECT_EQ(panel(3).substr(0, 4), place.icao);
            simulator.FlyTo(0.5, 100);
            Tick();
            Tick();
            EXPECT_EQ(Heard(), "") << "far from all of them";
        }
        simulator.Tune(Com2Standby, "121.00");
        Tick();
        simulator.Tune(Com2Standby, "118.10");
        Tick();
        EXPECT_EQ(state().feed.FeedIcao, lines.front().substr(0, 4)) << "none is in range: the first";
        EXPECT_TRUE(prompts.messages.empty());
        program->Run(Command::mnuQuit);
        player.state = Stopped;
    }
}

TEST_F(Shared, WhatPlaysGoesOnWhileInRangeAndAPickIsPreferred) {
    Write("Quillon\\live_atc_feeds.txt",
          "KJFK|a|http://h/KJFK|118.10\r\nKLGA|b|http://h/KLGA|118.10\r\n"
          "KJFK|Radio|http://h/station|119.00\r\nKLGA|c|http://h/other|119.00\r\n");
    Start();
    FlyTo(NewYork);
    TuneTo("118.10");
    EXPECT_EQ(Heard(), "http://h/KJFK");
    simulator.FlyTo(41.01, -73.26); // 34 miles from it and 12 from the other
    Tick();
    Tick();
    EXPECT_EQ(Heard(), "http://h/KJFK");
    FlyTo(NewYork);
    keyboard.down = 17;
    program->lvwDB_DblClick(1);
    Tick();
    EXPECT_EQ(Heard(), "http://h/KLGA") << "picked on the channel that is tuned already";
    Tick();
    EXPECT_EQ(Heard(), "http://h/KLGA");
    simulator.FlyTo(41.01, -74.9);
    Tick();
    EXPECT_EQ(Heard(), "http://h/KJFK") << "the pick is out of range";
    FlyTo(NewYork);
    TuneTo("121.00");
    TuneTo("118.10");
    EXPECT_EQ(Heard(), "http://h/KJFK") << "the pick is forgotten";

    simulator.FlyTo(0.5, 100);
    TuneTo("119.00");
    EXPECT_EQ(Heard(), "http://h/station") << "the first of the list, as none is in range";
    simulator.FlyTo(41.01, -73.01);
    Tick();
    EXPECT_EQ(Heard(), "http://h/station") << "a station that plays goes on";
    TuneTo("121.00");
    TuneTo("119.00");
    EXPECT_EQ(Heard(), "http://h/other");
}

TEST_F(Shared, RecordingsTakePartLikeFeeds) {
    Write("Quillon\\live_atc_feeds.txt", "KJFK|a|http://h/KJFK|118.10\r\nKSEA|Wav - b|" + folder +
                                             "\\Quillon\\ATC\\CYYZ_T\\|118.10\r\n" +
                                             "KSEA|c|http://h/KSEA|118.10\r\n");
    Start();
    FlyTo(Seattle);
    TuneTo("118.10");
    Tick();
    EXPECT_TRUE(Heard().ends_with(".wav") || Heard().ends_with(".WAV")) << Heard();
    FlyTo(NewYork);
    Tick();
    Tick();
    EXPECT_EQ(Heard(), "http://h/KJFK") << "within two seconds";
    FlyTo(Seattle);
    Tick();
    Tick();
    EXPECT_EQ(panel(3), "KSEA - Wav - b");
    keyboard.down = 17;
    program->lvwDB_DblClick(2);
    Tick();
    EXPECT_EQ(Heard(), "http://h/KSEA") << "picked while recordings play on its channel";
}

TEST_F(Shared, ADayAmong2000FeedsIsHeardWhereverOneIsInRange) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> north(-60, 60), east(-179, 179), step(-3, 3);
    std::string airports = "ICAO\r\n", feeds;
    std::vector<GeoPoint> places;
    std::map<std::string, std::vector<GeoPoint>> on_channel;
    for (int i = 0; i < 2000; ++i) {
        const int lat = static_cast<int>(north(random)), lon = static_cast<int>(east(random));
        const std::string icao = "A" + std::to_string(i);
        airports += icao + (lat < 0 ? ",S" : ",N") + std::to_string(std::abs(lat)) + "*00.00" +
                    (lon < 0 ? ",W" : ",E") + std::to_string(std::abs(lon)) + "*00.00\r\n";
        const int channel = i % 700;
        const std::string fraction = std::to_string(channel % 40 * 25 + 1000).substr(1, 2);
        const std::string frequency = std::to_string(118 + channel / 40) + "." + fraction;
        feeds += icao + "|" + std::to_string(i) + "|http://h/" + std::to_string(i) + "|" + frequency + "\r\n";
        places.push_back(GeoPoint::At(lat, lon));
        on_channel[frequency].push_back(places.back());
    }
    Write("Quillon\\Airport.dat", airports);
    Write("Quillon\\live_atc_feeds.txt", feeds);
    Start();
    double latitude = 10, longitude = 10;
    int heard = 0;
    for (int second = 0; second < 24 * 60 * 60; second += 8) {
        const std::size_t tuned = random() % 2000;
        if (random() % 20 == 0) {
            latitude = places[tuned].latitude + 0.2;
            longitude = places[tuned].longitude + 0.2;
        }
        latitude = std::clamp(latitude + 0.05 * step(random), -70.0, 70.0);
        longitude = std::remainder(longitude + 0.05 * step(random), 360);
        simulator.FlyTo(latitude, longitude);
        if (random() % 10 == 0)
            simulator.Tune(Com2Standby, std::string(state().form.lvwDB.Items()[tuned].Freq));
        Tick();
        Tick(); // a feed that comes back into range plays from the next tick on
        if (std::abs(latitude) < 1)
            continue; // between two points of the equator there is no distance on screen
        const auto aircraft =
            AircraftPoint(state().radio.AircraftLatitudeText, state().radio.AircraftLongitudeText);
        const std::string frequency = state().radio.MasterFrequency;
        bool any = false;
        if (aircraft)
            for (const GeoPoint& place : on_channel[frequency])
                any |= Look(*aircraft, place)->NauticalMiles() <= 50;
        ASSERT_EQ(any, !Heard().empty() && state().range.InRange) << second << " " << frequency;
        heard += any ? 1 : 0;
    }
    EXPECT_GT(heard, 100);
}

} // namespace
