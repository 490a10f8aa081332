// Positions, distances and flight times.
#include "core/great_circle.h"
#include "foundation/log.h"
#include "support/fixture.h"
#include "support/traffic.h"

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
    EXPECT_EQ(gettimeinhours(0, 100), 0);
    EXPECT_EQ(newestAction(), "Division by zero(11) in function gettimeinhours of module modGreatCircle");
}

} // namespace
} // namespace vantor
