// Ellipsoids, angles, the distance between two points, and which airport is nearest.
#include "ErrorOf.h"
#include "geo/AirportPositions.h"
#include "geo/Geodesy.h"
#include "geo/Mapstuff.h"
#include "geo/Utilities.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <random>
#include <utility>

using namespace quillon;

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST(Geodesy, DatumsNameAnExistingEllipsoid) { // geodesy_check.py compares their figures
    std::map<int, int> datums_on;
    for (std::int16_t i = 1; i <= Geodesy::DChoices(); ++i) ++datums_on[Geodesy::dNumber(i)];
    const std::map<int, int> as_agreed{{1, 1},  {2, 1},  {3, 3},  {4, 4},  {5, 19}, {6, 15},  {7, 3},
                                       {8, 1},  {10, 1}, {13, 1}, {14, 1}, {15, 1}, {16, 46}, {17, 1},
                                       {18, 1}, {19, 1}, {20, 1}, {21, 1}, {22, 1}};
    EXPECT_EQ(datums_on, as_agreed);
    EXPECT_EQ(Geodesy::dName(102), "WGS 1984");
    EXPECT_EQ(Geodesy::ename(Geodesy::dNumber(102)), "WGS-84");
    EXPECT_EQ(Geodesy::Choices(), 22);
    EXPECT_EQ(Geodesy::eMinor(22), 6356752.314);
    EXPECT_EQ(Geodesy::eflat(22), 298.257223563);
}

TEST(Geodesy, IndexOutsideTheTableIsAnError) {
    for (const std::int16_t index : std::initializer_list<std::int16_t>{-32768, -1, 0, 23, 32767})
        EXPECT_EQ(ErrorOf([&] { Geodesy::eMajor(index); }), 9) << index;
    for (const std::int16_t index : std::initializer_list<std::int16_t>{0, 104})
        EXPECT_EQ(ErrorOf([&] { Geodesy::dName(index); }), 9) << index;
}

TEST(Dms, AlmostSixtyIsCarriedAndTheSignRules) {
    const std::pair<DmsRecord, double> rows[] = {
        {{10, 30, 36, 1}, 10.51}, {{10, 30, 36, -1}, -10.51},        {{-10, 30, 36, -1}, -10.51},
        {{10, 30, 0, 0}, 0},      {{10, 59.999995, 0, 1}, 11},       {{10, 59, 59.999995, 1}, 11},
        {{10, 60, 0, 1}, 11},     {{10, 0, 59.9999, 1}, 10.01666664}};
    for (const auto& [angle, degrees] : rows) EXPECT_NEAR(DmsToDegrees(angle), degrees, 1e-8) << degrees;
}

TEST(Dms, SplitsDegrees) {
    for (const double value : {10.51, -0.5, 0.0, 10.9999999999, -10.5166666666}) {
        DmsRecord angle;
        DegreesToDms(value, angle);
        EXPECT_NEAR(DmsToDegrees(angle), value, 1e-8);
        EXPECT_LT(std::max(angle.minutes, angle.seconds), 60) << value;
    }
}

TEST(Angles, BranchesMeetAtTheAxesAndBeyondOne) {
    const double pi = std::acos(-1.0);
    const int x[] = {1, 1, 0, -1, -1, -1, 0, 1};
    const int y[] = {0, 1, 1, 1, 0, -1, -1, -1};
    for (int i = 0; i < 8; ++i) EXPECT_NEAR(Atan2Positive(y[i], x[i]), i * pi / 4, 1e-14) << i;
    EXPECT_EQ(Atan2Positive(0, 0), 0);

    EXPECT_NEAR(ArcSin(-0.5), -pi / 6, 1e-15);
    EXPECT_NEAR(ArcCos(-0.5), 2 * pi / 3, 1e-15);
    EXPECT_EQ(ArcSin(1.1), 3 * pi / 2);
    EXPECT_EQ(ModFloor(-1, 360), 359);
    EXPECT_EQ(ModFloor(720, 360), 0);
}

TEST(ValidatePoint, TheLongitudeGoesFirst) {
    double lat = 0;
    double lon = 0;
    EXPECT_EQ(ValidatePoint(90, -180, lat, lon), GeodesyCode::Success);
    EXPECT_EQ(std::pair(lat, lon), std::pair(-90.0, 0.0));
    EXPECT_EQ(ValidatePoint(-10.5, 30, lat, lon), GeodesyCode::Success);
    EXPECT_EQ(std::pair(lat, lon), std::pair(10.5, 30.0));
    EXPECT_EQ(ValidatePoint(90.5, 0, lat, lon), GeodesyCode::LatitudeOutside);
    EXPECT_EQ(ValidatePoint(91, 181, lat, lon), GeodesyCode::LongitudeOutside);
}

GeodesicProblem Between(double lat1, double lon1, double lat2, double lon2, std::int16_t ellipsoid = 22) {
    return {lat1, lon1, lat2, lon2, -1, -1, -1, ellipsoid};
}

/// Expected values: GeodSolve of GeographicLib 2.1.2 on the same axes; its azimuth at point 2 points onward, so
/// half a turn is added.
TEST(InverseGeodesic, AgreesWithAnIndependentSolution) {
    const std::tuple<const char*, GeodesicProblem, double, double, double> rows[] = {
        {"Sydney - Los Angeles", Between(-33.9461, 151.1772, 33.9425, -118.4081), 12050688.504756,
         61.16815558415, 241.16377442099},
        {"across the date line", Between(60, 179, 60, -179), 111595.753654, 89.13395257565, 270.86604742435},
        {"pole to pole", Between(90, 0, -90, 0), 20003931.458241, 180, 0},
        {"from the equator", Between(0, 0, 10, 90), 10018251.016016, 80.03272242569, 270.05160713560},
        {"nearly opposite", Between(0.5, 0, -0.5, 179), 19926190.521422, 90.00173011652, 270.00173011652},
        {"a few steps", Between(45, 0, 45.0001, 0.0001), 13.626109, 35.35524355935, 215.35531427009},
        {"New York - London on Clarke's ellipsoid", Between(40.6398, -73.7789, 51.4706, -0.4619, 5),
         5554699.826823, 51.38195451579, 287.97704648253}};
    for (auto [road, problem, distance, forward, back] : rows) {
        EXPECT_EQ(InverseGeodesic(problem), GeodesyCode::Success) << road;
        EXPECT_NEAR(problem.distance, distance, 1e-4) << road;
        EXPECT_NEAR(problem.forward_azimuth, forward, 1e-7) << road;
        EXPECT_NEAR(problem.back_azimuth, back, 1e-7) << road;
    }
}

TEST(InverseGeodesic, CodesSayWhyThereIsNoDistance) {
    const std::tuple<const char*, GeodesicProblem, int, double> rows[] = {
        {"latitude beyond the pole", Between(90.5, 0, 0, 0), 517, -1},
        {"longitude beyond 180", Between(0, 0, 1, -180.1), 517, -1},
        {"no number", Between(1, 0, 1, NaN), 517, -1},
        {"infinite", Between(-Infinity, 0, 1, 0), 517, -1},
        {"a tenth of a metre apart", Between(10, 20, 10 + 9e-7, 20 - 9e-7), 537, 0},
        {"coincidence is seen before the ellipsoid", Between(10, 20, 10, 20, 0), 537, 0},
        {"coincidence is seen on the equator", Between(0, 20, 0, 20), 537, 0},
        {"ellipsoid 0", Between(0, 0, 0, 1, 0), 520, -1},
        {"ellipsoid 23", Between(10, 0, 11, 1, 23), 520, -1},
        {"opposite points", Between(0.5, 0, -0.5, 179.7), 539, -1}};
    for (auto [rule, problem, code, results] : rows) {
        EXPECT_EQ(static_cast<int>(InverseGeodesic(problem)), code) << rule;
        EXPECT_EQ(problem.distance, results) << rule;
        EXPECT_EQ(problem.forward_azimuth, results) << rule;
        EXPECT_EQ(problem.back_azimuth, results) << rule;
    }
}

TEST(InverseGeodesic, TheEquatorHasNoSolution) {
    for (const double longitude : {1.0, -90.0, 180.0}) {
        GeodesicProblem problem = Between(0, 0, 0, longitude);
        EXPECT_EQ(ErrorOf([&] { InverseGeodesic(problem); }), 11) << longitude;
    }
    GeodesicProblem beside = Between(1e-300, 0, 0, 5); // 5 degrees of the equator
    EXPECT_EQ(InverseGeodesic(beside), GeodesyCode::Success);
    EXPECT_NEAR(beside.distance, 556597.453966, 1e-4);
}

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
