// Positions, distances and flight times.
#include "core/great_circle.h"
#include "core/leg_distances.h"
#include "support/test.h"

namespace vantor {
namespace {

using GreatCircleTest = test::Fixture;

TEST_F(GreatCircleTest, DigitsBehindThePointAreSeconds) {
    EXPECT_DOUBLE_EQ(convertlatlongtodegrees("S31* 56.40'"), -(31 + 56 / 60.0 + 40 / 3600.0));
    EXPECT_DOUBLE_EQ(convertlatlongtodegrees("w122* 18.00'"), -122.3);
    EXPECT_DOUBLE_EQ(convertlatlongtodegrees("E7*5.9"), 7 + 5 / 60.0 + 9 / 3600.0);
    EXPECT_DOUBLE_EQ(convertlatlongtodegrees(""), 0);
    EXPECT_EQ(newestAction(), "");
    // Odd texts are faults in the ring and leave zeroes. Without a point the minutes' length is negative; the seconds
    // are read from the start of the text and are 0.
    EXPECT_DOUBLE_EQ(convertlatlongtodegrees("S31* 56"), -31);
    EXPECT_EQ(newestAction(), "Invalid procedure call or argument(5) in function convertlatlongtodegrees of module "
                              "modGreatCircle");
    EXPECT_DOUBLE_EQ(convertlatlongtodegrees("N10* 30.99999"), 10.5);
    EXPECT_EQ(newestAction(), "Overflow(6) in function convertlatlongtodegrees of module modGreatCircle");
}

TEST_F(GreatCircleTest, OneDegreeIsSixtyMiles) {
    test::addAirport("AAAA", "");
    test::addAirport("BBBB", "", 0, 1);
    EXPECT_NEAR(flightdistance("AAAA", "BBBB "), 60, 1e-6);
    EXPECT_EQ(flightdistance("AAAA", "AAAA"), 0);
    EXPECT_EQ(flightdistance("AAAA", "ZZZZ"), 0);
    EXPECT_EQ(flightdistance("ZZZZ", "AAAA"), 0);
    EXPECT_EQ(newestAction(), "");
}

TEST_F(GreatCircleTest, ArcsineBeyondOneIsAFaultAndEveryDistanceANumber) {
    EXPECT_NEAR(bmmatharcsine(1), 1.57079632679, 1e-9);
    EXPECT_EQ(bmmatharcsine(1.5), 0);
    EXPECT_EQ(newestAction(), "Invalid procedure call or argument(5) in bmmatharcsine of module modGreatCircle");
    // Latitude 100 and 80 degrees, half the globe apart: one place, a haversine that rounding can take below 0.
    for (int degrees = 91; degrees < 180; ++degrees) {
        const double north = convdegreestoradians(degrees);
        EXPECT_LT(gcdistance(north, 0, shortPi - north, shortPi), 0.01) << degrees;
    }
}

TEST_F(GreatCircleTest, FlightTimeDropsSeconds) {
    EXPECT_EQ(formatHHMMSS(gettimeinhours(250, 1000)), "04:00:00");
    EXPECT_EQ(formatHHMMSS(gettimeinhours(250, 1004)), "04:00:00"); // 57.6 seconds are dropped
    EXPECT_NEAR(gettimeinhours(100, 2600), 26.0 / 24, 1e-12);
    EXPECT_EQ(gettimeinhours(0.5F, 50000), 0) << "more hours than 16 bits hold";
    EXPECT_EQ(gettimeinhours(0, 100), 0);
    EXPECT_EQ(newestAction(), "Division by zero(11) in function gettimeinhours of module modGreatCircle");
}

TEST_F(GreatCircleTest, TheQuickDistancesOfALoadRoundAsTheExactOnesDo) {
    // Unknown airports; then so many that room must be made, all over the globe, each with a neighbour and with one on
    // the other side.
    std::vector<FixedText<6>> codes = {{"KXXX"}, {"-1"}, {"a0"}};
    test::addAirport("-1", "", 1, 1);
    const auto add = [&](float latitude, float longitude) {
        codes.emplace_back("A" + std::to_string(codes.size()));
        test::addAirport(codes.back().text(), "", latitude, longitude);
    };
    std::mt19937 random(7);
    const auto degrees = [&](float most) {
        return most * (static_cast<float>(random() % 2'000'001) / 1'000'000.0F - 1);
    };
    add(90, 0);
    add(-90, 0);
    add(0, 0);
    for (int i = 0; i < 200; ++i) {
        const float latitude = degrees(90);
        const float longitude = degrees(180);
        add(latitude, longitude);
        add(latitude + degrees(0.02F), longitude + degrees(0.02F));
        add(-latitude + degrees(i % 2 == 0 ? 0.0F : 2.0F), longitude > 0 ? longitude - 180 : longitude + 180);
    }
    LegDistances distances;
    int differing = 0;
    for (const FixedText<6>& from : codes) {
        const GlobePoint start = distances.find(from);
        for (const FixedText<6>& to : codes) {
            const GlobePoint end = distances.find(to);
            const double exact = flightdistance(from.text(), to.text());
            for (const float speed : {0.7F, 120.0F, 487.3F}) {
                const FlownWay quick = LegDistances::between(from, start, to, end, speed);
                differing += double{quick.miles} != roundHalfEven(exact) ? 1 : 0;
                differing += quick.hours != roundHalfEven(exact / static_cast<double>(speed)) ? 1 : 0;
            }
        }
    }
    EXPECT_EQ(differing, 0);
}

} // namespace
} // namespace vantor
