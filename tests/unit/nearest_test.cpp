// Which airport is nearest: the quick first selection never changes the answer.
#include "geo/AirportPositions.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

using namespace quillon;

namespace {

TEST(AirportPositions, KnowsOnlyAirportsWhoseLinesMakeSense) {
    const AirportList list({"KJFK,N40*38.23,W073*46.72", "CYYZ,N43*40.00,W079*37.00",
                            "EGLL,N51*28.00,W000*27.00", "FAUL,Sx*28.00,W000*27.00", "NONE",
                            "CYYZ,N10*00.00,E010*00.00"});
    AirportPositions positions(list);
    ASSERT_NE(positions.Of("CYYZ"), nullptr);
    EXPECT_NEAR(positions.Of("CYYZ")->latitude, 43.6667, 1e-4);
    EXPECT_NEAR(positions.Of("CYYZ")->longitude, -79.6167, 1e-4);
    for (const char* unknown : {"KJFK", "FAUL", "NONE", "cyyz", ""}) EXPECT_EQ(positions.Of(unknown), nullptr);
}

TEST(AircraftPoint, IsTheOneThatTheScreenMeasuresFrom) {
    EXPECT_FALSE(AircraftPoint("", ""));
    EXPECT_FALSE(AircraftPoint("0.0", "10.0"));
    const GeoPoint point = AircraftPoint("-33.94612345", "151.1772").value();
    EXPECT_NEAR(point.latitude, -(33 + 56 / 60.0 + 48 / 3600.0), 1e-9);
    EXPECT_NEAR(point.longitude, 151 + 10 / 60.0 + 36 / 3600.0, 1e-9);
}

TEST(Nearest, IsTheOneWithTheShortestGeodesic) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> latitude(-90, 90), longitude(-180, 180), spread(-0.2, 0.2);
    for (int round = 0; round < 200; ++round) {
        const GeoPoint aircraft = GeoPoint::At(latitude(random), longitude(random));
        std::vector<GeoPoint> points;
        for (int i = 0; i < 50; ++i) {
            // Half of them at nearly the same distance, in every direction.
            const double angle = i * 0.25, reach = 5 + 0.01 * spread(random);
            const double north = std::clamp(aircraft.latitude + reach * std::cos(angle), -90.0, 90.0);
            const double east = aircraft.longitude +
                                reach * std::sin(angle) / std::max(0.05, std::cos(aircraft.latitude * 0.01745));
            points.push_back(i % 2 == 0 ? GeoPoint::At(latitude(random), longitude(random))
                                        : GeoPoint::At(north, std::remainder(east, 360)));
        }
        std::vector<const GeoPoint*> candidates{nullptr};
        std::size_t expected = 0;
        double shortest = 1e9;
        for (const GeoPoint& point : points) {
            candidates.push_back(&point);
            const auto sight = Look(aircraft, point);
            if (!sight || sight->metres >= shortest) continue;
            shortest = sight->metres;
            expected = candidates.size() - 1;
        }
        EXPECT_EQ(NearestInRange(aircraft, candidates, 0), expected);
        const auto range = static_cast<std::int16_t>(WholeNauticalMiles(shortest));
        EXPECT_EQ(NearestInRange(aircraft, candidates, range), expected);
        if (range > 1) {
            EXPECT_EQ(NearestInRange(aircraft, candidates, range - 1), std::nullopt);
        }
    }
}

TEST(Look, HasNoHolesOnTheEquatorOrAtTheAirport) {
    const GeoPoint here = GeoPoint::At(0, 10), there = GeoPoint::At(0, 11);
    EXPECT_EQ(Look(here, here)->NauticalMiles(), 0);
    EXPECT_EQ(Look(here, there)->NauticalMiles(), 60);
    EXPECT_NEAR(Look(here, there)->bearing, 90, 0.01);
    EXPECT_EQ(NearestInRange(here, {}, 50), std::nullopt);
}

} // namespace
