#include "core/tables.h"
#include "schedule/leg_store.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <tuple>

namespace vantor::test {
namespace {

constexpr std::int16_t secondLeg = 2;

// The second leg of a loop of two flies 603.24 nm along the equator: 2 hours 24 minutes at 250 knots (the rest of the
// minute is dropped), which the 16 minutes on the ground make 2:40.
class LegStoreTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        addAirport("GFAR", "Far", 0, 10.054F);
        addAirport("GZER", "Zero");
        addAircraft("AC#1", "Jet", 250);
        addAircraft("AC#2", "Barge", 12.5F);
        addAircraft("AC#3", "Unknown speed", 0);
        sched.legcount = 2;
        sched.legs.append(makeLeg("GFAR", "GZER"));
        sched.legs.append(makeLeg("GZER", "GFAR"));
        controls.aircraft = "AC#1 - Jet";
        controls.repeat = "6h";
        controls.time = "10:00";
        controls.altitude = "230";
        controls.flightnum = "77";
    }

    LegRec& leg() { return sched.legs[secondLeg]; }
    LegStored store() { return storeleg(sched, secondLeg, controls); }

    ScheduleRec sched;
    LegControls controls;
};

TEST_F(LegStoreTest, StoresEverythingTheFrameShows) {
    controls.touchAndGo = true;
    controls.useRegistration = true;
    controls.flightnum = "1234567890123";
    controls.altitude = "230.5";
    leg().depday = 3; // from a time when the schedule was a weekly one, its arrival fixed
    leg().atflag = true;
    EXPECT_EQ(store(), LegStored{});
    EXPECT_EQ(textOf(leg()), "GZER-GFAR -1/10:00:00 TNG0/12:40:00 230 R123456789012 603nm 2.41h 0");
    EXPECT_EQ(sched.legs[1], makeLeg("GFAR", "GZER"));
    controls.altitude = "231.5";
    EXPECT_EQ(store(), LegStored{});
    EXPECT_EQ(leg().flightlevel, 232);
}

TEST_F(LegStoreTest, ComputesTheArrivalAtEachStoreAnew) {
    struct Case {
        double offset; // hours
        const char* time;
        const char* aircraft;
        int departureRow;    // 0: not a weekly schedule
        std::int16_t arrday; // what the leg holds at first
        const char* result;  // departure and arrival with their days
        std::int16_t again;  // the arrival's day behind a second store
    };
    const char* const jet = "AC#1 - Jet";
    for (const Case& one : {Case{0, "10:00", jet, 0, 0, "-1/10:00:00 0/12:40:00", 0},
                            Case{0, "10:00:30", "AC#3 - Unknown speed", 0, 0, "-1/10:00:00 0/12:40:00", 0},
                            Case{6, "10:00", jet, 0, 0, "-1/04:00:00 0/06:40:00", 0},
                            Case{5.5, "10:00", jet, 0, 0, "-1/04:30:00 0/07:10:00", 0},
                            Case{-6, "10:00", jet, 0, 0, "-1/04:00:00 0/06:40:00", 0}, // the sign is lost
                            Case{6, "02:00", jet, 0, 0, "-1/04:00:00 0/01:20:00", 0}, // and no wrap: 02:00 is 20:00 GMT
                            Case{0, "23:00", jet, 0, 0, "-1/23:00:00 0/01:40:00", 0},
                            // A weekly arrival moves on at every store across midnight, from the day that it had.
                            Case{0, "23:00", jet, 2, 1, "1/23:00:00 2/01:40:00", 3},
                            Case{0, "23:00", jet, 7, 6, "6/23:00:00 0/01:40:00", 1},
                            Case{0, "10:00", jet, 3, 5, "2/10:00:00 5/12:40:00", 5},
                            Case{0, "10:00", "AC#2 - Barge", 2, 4, "1/10:00:00 6/10:31:00", 1}}) { // 48:15 and 16
        SCOPED_TRACE(one.result);
        gmtoffset = static_cast<float>(one.offset / 24);
        controls.time = one.time;
        controls.aircraft = one.aircraft;
        controls.repeat = one.departureRow == 0 ? "6h" : "WEEK";
        controls.departureDay = one.departureRow;
        leg().arrday = one.arrday;
        EXPECT_FALSE(store().invalidTime);
        LegRec expected = leg();
        EXPECT_EQ(textOf(expected).substr(10, std::string_view(one.result).size()), one.result);
        EXPECT_FALSE(store().invalidTime);
        expected.arrday = one.again;
        EXPECT_EQ(leg(), expected);
    }
    EXPECT_NEAR(leg().flighthours, 48.2592, 0.001); // of the distance before it was rounded
    // Midnight is reached exactly in single precision.
    gmtoffset = 0;
    leg() = makeLeg("GZER", "GFAR");
    controls.aircraft = "AC#1 - Jet";
    leg().toicao = "XXXX"; // unknown: 0 nm, and 16 minutes all the same
    controls.time = "23:44";
    controls.repeat = "WEEK";
    controls.departureDay = 2;
    EXPECT_EQ(store(), LegStored{});
    EXPECT_EQ(textOf(leg()), "GZER-XXXX 1/23:44:00 1/00:00:00 230 F77 0nm 0.00h 0");
}

TEST_F(LegStoreTest, AFixedArrivalStandsAndADepartureWithoutDayIsOnSunday) {
    controls.fix = true;
    controls.eta = "1:05";
    controls.arrivalDay = 4;
    controls.repeat = "WEEK";
    EXPECT_EQ(store(), (LegStored{true, false}));
    EXPECT_EQ(textOf(leg()), "GZER-GFAR 0/10:00:00 @3/01:05:00 230 F77 603nm 2.41h 0");
    controls.arrivalDay = 0; // the arrival has no such guard
    controls.departureDay = 5;
    EXPECT_EQ(store(), LegStored{});
    EXPECT_EQ(textOf(leg()), "GZER-GFAR 4/10:00:00 @-1/01:05:00 230 F77 603nm 2.41h 0");
    controls.departureDay = 0;
    controls.time = "25:00"; // the day is stored ahead of the time
    EXPECT_EQ(store(), (LegStored{true, true}));
    EXPECT_EQ(leg().depday, 0);
}

// What stops the store ahead of the first field: the number of the leg, and what stands in the controls.
TEST_F(LegStoreTest, AFaultAheadOfTheFieldsChangesNothing) {
    const ScheduleRec before = sched;
    for (const auto& [number, time, altitude, plane, speaksOfTheTime] :
         {std::tuple{secondLeg, "", "230", "AC#1", true},
          {secondLeg, "25:00", "230", "AC#1", true},
          {secondLeg, "10:00", "high", "AC#1", true},   // it has no words of its own
          {secondLeg, "10:00", "32768", "AC#1", false}, // and one that is too high has none at all
          {secondLeg, "10:00", "230", "AC#9 - Gone", false},
          {std::int16_t{3}, "10:00", "230", "AC#1", false},
          {std::int16_t{3}, "x", "230", "AC#1", true}}) { // the time is read before the leg is looked for
        SCOPED_TRACE(std::string(time) + " " + altitude + " " + plane);
        controls.time = time;
        controls.altitude = altitude;
        controls.aircraft = plane;
        EXPECT_EQ(storeleg(sched, number, controls), (LegStored{false, speaksOfTheTime}));
        EXPECT_EQ(sched, before);
    }
    EXPECT_EQ(invalidTimeError().number(), 23000);
    EXPECT_EQ(invalidTimeError().description(),
              "Invalid time, please ensure you use the format HH:MM or HH:MM:SS.  E.g. 23:45");
}

TEST_F(LegStoreTest, ABadArrivalKeepsWhatWasStoredBefore) {
    controls.fix = true;
    controls.eta = "soon";
    controls.touchAndGo = true;
    controls.useRegistration = true;
    EXPECT_TRUE(store().invalidTime);
    // Level, distance and mark are new, and the rest is as it was.
    EXPECT_EQ(textOf(leg()), "GZER-GFAR -1/12:00:00 @0/12:00:00 230 F1 603nm 2.41h 0");
}

} // namespace
} // namespace vantor::test
