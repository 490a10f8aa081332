// What the editor makes of the legs of a schedule, what a stored leg becomes, and the commands for schedules.
#include "schedule/leg_editing.h"
#include "schedule/leg_store.h"
#include "schedule/schedule_commands.h"
#include "support/test.h"

namespace vantor::test {
namespace {

constexpr std::int16_t secondLeg = 2;

// The second leg of a loop of two flies 603.24 nm along the equator: 2 hours 24 minutes at 250 knots (the rest of the
// minute is dropped), which the 16 minutes on the ground make 2:40.
class LegStoreTest : public Fixture {
  protected:
    void SetUp() override {
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

class LegEditingTest : public Fixture {
  protected:
    static ScheduleDraft draftOf(const std::vector<LegRec>& legs) {
        ScheduleDraft draft;
        for (const LegRec& leg : legs) {
            draft.sched.legs.append(leg);
        }
        draft.sched.legcount = static_cast<std::int16_t>(legs.size());
        return draft;
    }

    // All legs as "A-B B-A".
    static std::string loop(const ScheduleDraft& draft) {
        std::string text;
        for (const ListRow& row : legrows(draft.sched)) {
            text += (text.empty() ? "" : " ") + replaceAll(row.text, " - ", "-");
        }
        return text;
    }

    ScheduleDraft draft = draftOf(loopOver({"A", "B", "C"})); // C-A A-B B-C
};

TEST_F(LegEditingTest, ChangingAnAirportKeepsTheLoopClosed) {
    using enum LegEnd;
    for (const auto& [leg, end, code, result] : {std::tuple{2, Destination, "X", "C-A A-X X-C"},
                                                 {2, Departure, "Y", "C-Y Y-X X-C"},
                                                 {3, Destination, "Z", "Z-Y Y-X X-Z"},
                                                 {1, Departure, "W", "W-Y Y-X X-W"},
                                                 {0, Destination, "V", "V-Y Y-X X-W"}}) { // no leg is current
        changeairport(caller, draft, static_cast<std::int16_t>(leg), end, code);
        EXPECT_EQ(loop(draft), result);
    }
    EXPECT_EQ(draft.sched.legs[2].distance, 100.0F); // computed when the leg itself is stored
    ScheduleDraft single = draftOf({makeLeg("A", "B")});
    changeairport(caller, single, 1, LegEnd::Destination, "X");
    EXPECT_EQ(loop(single), "X-X");
    ScheduleDraft none;
    changeairport(caller, none, 1, LegEnd::Destination, "X");
    EXPECT_EQ(newestAction(), "");

    // The leg before leg 0 is none.
    changeairport(caller, draft, 0, LegEnd::Departure, "U");
    EXPECT_EQ(loop(draft), "V-Y Y-X X-W");
    EXPECT_EQ(std::string(draft.leg0.fromicao.text()) + "-" + std::string(draft.leg0.toicao.text()), "U-V");
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub caller of module test");
}

TEST_F(LegEditingTest, ANewLegClosesTheGapAndTakesAfterTheLegBefore) {
    LegRec& last = draft.sched.legs[3];
    last.dep = "07:15:00";
    last.arr = "09:00:00";
    last.atflag = true;
    last.flightnum = "42";
    last.legtype = "R";
    last.flightlevel = 310;
    last.hashindex = 1003;
    addlegtosched(caller, draft, true, 3, 0, true);
    EXPECT_EQ(loop(draft), "C-A A-B B-C C-C");
    // The arrival is midnight even behind a fixed one.
    EXPECT_EQ(textOf(draft.sched.legs[4]), "C-C 0/07:15:00 TNG0/00:00:00 310 R42 0nm 0.00h 0");

    // One inserted takes the place of the current row; without one it goes ahead of the last.
    draft = draftOf(loopOver({"A", "B", "C"}));
    addlegtosched(caller, draft, false, 3, 1, false);
    EXPECT_EQ(loop(draft), "C-A A-A A-B B-C");
    addlegtosched(caller, draft, false, 4, 0, false);
    EXPECT_EQ(loop(draft), "C-C C-A A-A A-B B-C");
    addlegtosched(caller, draft, false, 5, -1, false);
    EXPECT_EQ(loop(draft), "C-C C-A A-A A-B B-B B-C");

    ScheduleDraft single = draftOf({makeLeg("A", "B")});
    addlegtosched(caller, single, true, 1, 0, false);
    EXPECT_EQ(loop(single), "A-B B-A");
    ScheduleDraft none; // the first leg of all has only the blank leg 0 before it
    addlegtosched(caller, none, false, 0, -1, false);
    ASSERT_EQ(none.sched.legcount, 1);
    EXPECT_EQ(textOf(none.sched.legs[1]), "- 0/ 0/00:00:00 0  0nm 0.00h 0");
    EXPECT_EQ(newestAction(), "");

    // There are no more legs than the count holds.
    draft.sched.legs.resize(32767);
    draft.sched.legcount = 32767;
    addlegtosched(caller, draft, true, 32767, 0, false);
    EXPECT_EQ(draft.sched.legcount, 32767);
    EXPECT_EQ(newestAction(), "Overflow(6) in sub caller of module test");
}

TEST_F(LegEditingTest, DeletesLegsAndLeavesTheLoopOpen) {
    deleteleg(draft.sched, 0); // no leg has that number: none is lost
    deleteleg(draft.sched, 4);
    EXPECT_EQ(loop(draft), "C-A A-B B-C");
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub deleteleg of module modLegDelete");
    draft.sched.legs[3].hashindex = 1003;
    deleteleg(draft.sched, 2);
    EXPECT_EQ(loop(draft), "C-A B-C");
    EXPECT_EQ(draft.sched.legs[2].hashindex, 1003);
    deleteleg(draft.sched, 2);
    EXPECT_EQ(loop(draft), "C-A");
    for (int i = 0; i < 2; ++i) { // the second finds none
        deleteleg(draft.sched, 1);
        EXPECT_EQ(draft.sched.legcount, 0);
        EXPECT_EQ(draft.sched.legs[1], LegRec{});
    }
    addlegtosched(caller, draft, true, 0, -1, false);
    EXPECT_EQ(draft.sched.legs.size(), 1);
}

TEST_F(LegEditingTest, TextsOfTheEditor) {
    draft.sched.legs[2].deleted = true;
    EXPECT_EQ(legrows(draft.sched), (ListRows{{"C - A", 1}, {"A - B (DEL) ", 2}, {"B - C", 3}}));

    const ListRows airportBox = {{"EGLL - London"}, {"egkk - Gatwick"}, {"EGKKX - Other"}};
    EXPECT_EQ(rowstartingwith(airportBox, "EGKK "), 1);
    EXPECT_EQ(rowstartingwith(airportBox, "eg"), 0);
    EXPECT_EQ(rowstartingwith(airportBox, "KSEA"), -1);
    EXPECT_EQ(rowstartingwith(airportBox, ""), 0);
    EXPECT_EQ(aircraftrow({{"ac#12 - Small"}, {"AC#123 - Long"}, {"AC#12 - Short"}}, "AC#12"), 2);

    LegRec leg;
    leg.distance = 112.5F;
    leg.flighthours = 23.99F;
    EXPECT_EQ(distancetext(leg), "112 NM");
    EXPECT_FALSE(isoveraday(leg));
    leg.flighthours = 24.0F;
    EXPECT_TRUE(isoveraday(leg));
}

class ScheduleCommandsTest : public Fixture {
  protected:
    void SetUp() override {
        addSchedule("AC#1,ONE,100%,24HR,IFR", loopOver({"A", "B"}));
        addSchedule("ac#2,TWO,50%,WEEK,VFR", loopOver({"C", "D", "E"}));
        addSchedule("AC#2,TRE,50%,6h,VFR", loopOver({"C", "D"}));
    }
};

TEST_F(ScheduleCommandsTest, NewOnesAndCopiesTakeTheNextNumber) {
    const ScheduleRec made = defaultschedule("ac#7 - Boeing"); // its legs carry the number of the one before
    EXPECT_EQ(textOf(made), "4 AC#7 X 50% 6h IFR"
                            " | YPPH-YPEA 1/12:00:00 0/00:00:00 150 F123 0nm 0.00h 3001"
                            " | YPPH-YPEA 1/12:30:00 0/00:00:00 150 F123 0nm 0.00h 3002");
    addschedule(caller, made);
    EXPECT_EQ(schedulecount, 4);
    EXPECT_EQ(schedules.peek(4), made);

    countDroppedLine(); // its number counts, and the copy lands in the next free slot with mark and leg numbers
    deleteschedbyrecnum(2);
    copyschedule(caller, 2);
    ScheduleRec expected = schedules.HashGetSlot(2);
    EXPECT_TRUE(expected.deleted);
    EXPECT_EQ(expected.legs[3].hashindex, 2003);
    expected.recnum = schedulecount;
    EXPECT_EQ(expected.recnum, 6);
    EXPECT_EQ(schedules.peek(5), expected);

    schedulecount = schedules.RecordCount(); // as after many lines that were dropped: each number can be read
    addschedule(caller, defaultschedule("AC#7"));
    EXPECT_EQ(schedules.peek(schedulecount).legcount, 0);
}

TEST_F(ScheduleCommandsTest, DeletingBySlotTogglesAndByAircraftSets) {
    const ScheduleRec before = schedules.HashGetSlot(1);
    deleteschedbyrecnum(1);
    EXPECT_TRUE(schedules.peek(1).deleted);
    deleteschedbyrecnum(1);
    EXPECT_EQ(schedules.peek(1), before);
    deleteschedbyrecnum(-5);
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub deleteschedbyrecnum of module modSchedDeleteByAC");
    deleteschedbyac("ac#2 - Boeing"); // whatever its case
    deleteschedbyac("AC#2");
    EXPECT_FALSE(schedules.peek(1).deleted);
    EXPECT_TRUE(schedules.peek(2).deleted);
    EXPECT_TRUE(schedules.peek(3).deleted);
    // A leg that is not there is a fault, and its schedule still counts as touched.
    ScheduleRec touched;
    toggleleg(caller, {2, 3}, touched);
    EXPECT_EQ(touched, schedules.peek(2));
    EXPECT_TRUE(touched.legs[3].deleted);
    toggleleg(caller, {1, 9}, touched);
    EXPECT_EQ(touched, schedules.peek(1));
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub caller of module test");
}

} // namespace
} // namespace vantor::test
