#include "core/tables.h"
#include "schedule/leg_editing.h"
#include "schedule/leg_store.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <gtest/gtest.h>

namespace vantor::test {
namespace {

constexpr std::int16_t secondLeg = 2;

// The second leg of a loop of two flies 603 nm along the equator: 2 hours 24 minutes at 250 knots (the rest of the
// minute is dropped), which the 16 minutes on the ground make 2:40.
class LegStoreTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        addAirport("GFAR", "Far", 0, 10.05F);
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

    // Stores the same controls twice and tells "dep arr day" of both; the rest must be the same.
    std::string storeTwice() {
        std::string result;
        for (int i = 0; i < 2; ++i) {
            EXPECT_FALSE(store().invalidTime);
            result += (i == 0 ? "" : " | ") + std::string(leg().dep.text()) + " " + std::string(leg().arr.text()) +
                      " " + std::to_string(leg().arrday);
        }
        return result;
    }

    void makeWeekly(int departureRow, std::int16_t arrday) {
        controls.repeat = "WEEK";
        controls.departureDay = departureRow;
        leg().arrday = arrday;
    }

    ScheduleRec sched;
    LegControls controls;
};

TEST_F(LegStoreTest, StoresEverythingTheFrameShows) {
    controls.touchAndGo = true;
    controls.useRegistration = true;
    controls.flightnum = "1234567890123";
    EXPECT_EQ(store(), LegStored{});
    EXPECT_EQ(textOf(leg()), "GZER-GFAR -1/10:00:00 TNG0/12:40:00 230 R123456789012 603nm 2.41h 0");
    EXPECT_EQ(sched.legs[1], makeLeg("GFAR", "GZER"));
}

TEST_F(LegStoreTest, ComputesArrivalsAtEachOffset) {
    EXPECT_EQ(storeTwice(), "10:00:00 12:40:00 0 | 10:00:00 12:40:00 0");
    gmtoffset = 0.25F;
    EXPECT_EQ(storeTwice(), "04:00:00 06:40:00 0 | 04:00:00 06:40:00 0");
    // The sign of the offset is lost on the way back.
    gmtoffset = -0.25F;
    EXPECT_EQ(storeTwice(), "04:00:00 06:40:00 0 | 04:00:00 06:40:00 0");
    gmtoffset = static_cast<float>(5.5 / 24);
    EXPECT_EQ(storeTwice(), "04:30:00 07:10:00 0 | 04:30:00 07:10:00 0");
    // Where a wrap would be there is an absolute value: 02:00 local is 20:00 GMT and becomes 04:00.
    gmtoffset = 0.25F;
    controls.time = "02:00";
    EXPECT_EQ(storeTwice(), "04:00:00 01:20:00 0 | 04:00:00 01:20:00 0");
}

TEST_F(LegStoreTest, MovesTheArrivalDayOnAtEveryStoreAcrossMidnight) {
    controls.time = "23:00";
    EXPECT_EQ(storeTwice(), "23:00:00 01:40:00 0 | 23:00:00 01:40:00 0"); // not weekly: no record of the day
    makeWeekly(2, 1);
    EXPECT_EQ(storeTwice(), "23:00:00 01:40:00 2 | 23:00:00 01:40:00 3");
    EXPECT_EQ(leg().depday, 1);
    makeWeekly(7, 6);
    EXPECT_EQ(storeTwice(), "23:00:00 01:40:00 0 | 23:00:00 01:40:00 1");
    // Without midnight on the way the old arrival day stays, whatever the departure day.
    controls.time = "10:00";
    makeWeekly(3, 5);
    EXPECT_EQ(storeTwice(), "10:00:00 12:40:00 5 | 10:00:00 12:40:00 5");
    EXPECT_EQ(leg().depday, 2);
}

TEST_F(LegStoreTest, CountsEveryDayOfALongFlight) {
    controls.aircraft = "AC#2 - Barge"; // 48:14 and 16 minutes
    makeWeekly(2, 1);
    EXPECT_EQ(storeTwice(), "10:00:00 10:30:00 3 | 10:00:00 10:30:00 5");
    EXPECT_NEAR(leg().flighthours, 48.24, 0.001);
    EXPECT_TRUE(isoveraday(leg()));
    controls.aircraft = "AC#1 - Jet";
    static_cast<void>(store());
    EXPECT_FALSE(isoveraday(leg()));
}

TEST_F(LegStoreTest, ReachesMidnightExactlyInSinglePrecision) {
    leg().toicao = "XXXX"; // unknown: 0 nm, and 16 minutes all the same
    controls.time = "23:44";
    makeWeekly(2, 1);
    EXPECT_EQ(storeTwice(), "23:44:00 00:00:00 2 | 23:44:00 00:00:00 3");
    EXPECT_EQ(leg().distance, 0.0F);
    EXPECT_EQ(leg().flighthours, 0.0F);
}

TEST_F(LegStoreTest, KeepsAFixedArrival) {
    controls.fix = true;
    controls.eta = "1:05";
    controls.arrivalDay = 4;
    makeWeekly(2, 1);
    EXPECT_EQ(storeTwice(), "10:00:00 01:05:00 3 | 10:00:00 01:05:00 3");
    EXPECT_TRUE(leg().atflag);
    EXPECT_EQ(leg().distance, 603.0F);
    controls.arrivalDay = 0; // "N/A" has no guard for the arrival
    EXPECT_EQ(storeTwice(), "10:00:00 01:05:00 -1 | 10:00:00 01:05:00 -1");
}

TEST_F(LegStoreTest, PutsAWeeklyDepartureWithoutDayOnSunday) {
    makeWeekly(0, 1);
    EXPECT_EQ(store(), (LegStored{true, false}));
    EXPECT_EQ(leg().depday, 0);
    controls.time = "25:00"; // the day is stored ahead of the time
    leg().depday = 4;
    EXPECT_EQ(store(), (LegStored{true, true}));
    EXPECT_EQ(leg().depday, 0);
}

TEST_F(LegStoreTest, DropsSecondsAndRoundsTheLevel) {
    controls.time = "10:00:30";
    controls.altitude = "230.5";
    EXPECT_EQ(storeTwice(), "10:00:00 12:40:00 0 | 10:00:00 12:40:00 0");
    EXPECT_EQ(leg().flightlevel, 230);
    controls.altitude = "231.5";
    controls.aircraft = "AC#3 - Unknown speed"; // flies at 250 knots
    EXPECT_EQ(storeTwice(), "10:00:00 12:40:00 0 | 10:00:00 12:40:00 0");
    EXPECT_EQ(leg().flightlevel, 232);
}

// What stops the store ahead of the first field: the number of the leg, and what stands in the controls.
TEST_F(LegStoreTest, AFaultAheadOfTheFieldsChangesNothing) {
    struct Fault {
        std::int16_t number;
        const char* time;
        const char* altitude;
        const char* aircraft;
        bool speaksOfTheTime;
    };
    const ScheduleRec before = sched;
    for (const Fault& fault :
         {Fault{secondLeg, "", "230", "AC#1", true}, Fault{secondLeg, "abc", "230", "AC#1", true},
          Fault{secondLeg, "25:00", "230", "AC#1", true}, Fault{secondLeg, "10", "230", "AC#1", true},
          Fault{secondLeg, "10:60", "230", "AC#1", true},
          Fault{secondLeg, "10:00", "high", "AC#1", true},   // it has no words of its own
          Fault{secondLeg, "10:00", "32768", "AC#1", false}, // and one that is too high has none at all
          Fault{secondLeg, "10:00", "230", "AC#9 - Gone", false}, Fault{3, "10:00", "230", "AC#1", false},
          Fault{3, "x", "230", "AC#1", true}}) { // the time is read before the leg is looked for
        SCOPED_TRACE(std::string(fault.time) + " " + fault.altitude + " " + fault.aircraft);
        controls.time = fault.time;
        controls.altitude = fault.altitude;
        controls.aircraft = fault.aircraft;
        EXPECT_EQ(storeleg(sched, fault.number, controls), (LegStored{false, fault.speaksOfTheTime}));
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
