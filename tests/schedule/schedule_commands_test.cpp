#include "core/tables.h"
#include "foundation/log.h"
#include "schedule/find_text.h"
#include "schedule/schedule_commands.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <gtest/gtest.h>

namespace vantor::test {
namespace {

class ScheduleCommandsTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        addSchedule("AC#1,ONE,100%,24HR,IFR", loopOver({"A", "B"}));
        addSchedule("ac#2,TWO,50%,WEEK,VFR", loopOver({"C", "D", "E"}));
        addSchedule("AC#2,TRE,50%,6h,VFR", loopOver({"C", "D"}));
    }

    static bool deleted(std::int32_t recnum) { return schedules.peek(recnum).deleted; }
};

TEST_F(ScheduleCommandsTest, TheDefaultScheduleCarriesTheNumberOfTheOneBefore) {
    const ScheduleRec made = defaultschedule("ac#7 - Boeing");
    EXPECT_EQ(textOf(made), "4 AC#7 X 50% 6h IFR"
                            " | YPPH-YPEA 1/12:00:00 0/00:00:00 150 F123 0nm 0.00h 3001"
                            " | YPPH-YPEA 1/12:30:00 0/00:00:00 150 F123 0nm 0.00h 3002");
    EXPECT_EQ(schedulecount, 3);

    addschedule(made, "sub test");
    EXPECT_EQ(schedulecount, 4);
    EXPECT_EQ(schedules.peek(4), made);
}

TEST_F(ScheduleCommandsTest, EveryNumberThatCountsCanBeRead) {
    const auto legsOfLast = [] { return schedules.peek(schedulecount).legcount; };
    schedulecount = schedules.RecordCount(); // as after many lines that were dropped
    addschedule(defaultschedule("AC#7"), "sub test");
    EXPECT_EQ(legsOfLast(), 0);
    schedulecount = schedules.RecordCount();
    copyschedule(2);
    EXPECT_EQ(legsOfLast(), 0);
    EXPECT_EQ(schedules.peek(5).legcount, 3);
}

TEST_F(ScheduleCommandsTest, ACopyKeepsTheLegNumbersOfItsSource) {
    deleteschedbyrecnum(2);
    copyschedule(2);
    EXPECT_EQ(schedulecount, 4);
    ScheduleRec expected = schedules.HashGetSlot(2);
    EXPECT_TRUE(expected.deleted);
    expected.recnum = 4;
    EXPECT_EQ(schedules.peek(4), expected);
    EXPECT_EQ(schedules.peek(4).legs[3].hashindex, 2003);
}

TEST_F(ScheduleCommandsTest, AfterADroppedLineANewScheduleLandsInTheNextFreeSlot) {
    countDroppedLine();
    copyschedule(1);
    EXPECT_EQ(schedulecount, 5);
    EXPECT_EQ(schedules.peek(4).recnum, 5);
}

TEST_F(ScheduleCommandsTest, DeletingBySlotToggles) {
    const ScheduleRec before = schedules.HashGetSlot(1);
    deleteschedbyrecnum(1);
    EXPECT_TRUE(deleted(1));
    deleteschedbyrecnum(1);
    EXPECT_EQ(schedules.peek(1), before);
    deleteschedbyrecnum(-5);
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub deleteschedbyrecnum of module modSchedDeleteByAC");
}

TEST_F(ScheduleCommandsTest, DeletingByAircraftSetsAndIgnoresCase) {
    deleteschedbyac("ac#2 - Boeing");
    deleteschedbyac("AC#2");
    EXPECT_FALSE(deleted(1));
    EXPECT_TRUE(deleted(2));
    EXPECT_TRUE(deleted(3));
}

TEST_F(ScheduleCommandsTest, TogglesALeg) {
    ScheduleRec touched;
    toggleleg(2, 3, touched);
    EXPECT_EQ(touched.acnum.text(), "ac#2");
    EXPECT_TRUE(schedules.peek(2).legs[3].deleted);
    EXPECT_EQ(schedules.peek(2).legcount, 3);
    toggleleg(2, 3, touched);
    EXPECT_FALSE(schedules.peek(2).legs[3].deleted);
    // A leg that is not there (any more) is a fault in the ring, and the schedule still counts as touched.
    toggleleg(1, 9, touched);
    EXPECT_EQ(touched.acnum.text(), "AC#1");
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub cmddeleteleg_click of module frmMain");
}

TEST(FindText, WalksFromHitToHit) {
    struct Step {
        const char* text;
        std::int16_t from;
        FindResult result;
        std::int16_t to;
    };
    const ListRows rows = {{"KSEA - Seattle"}, {"KPDX - Portland"}, {""}, {"ESSA - Stockholm"}, {""}};
    for (const Step& step : {Step{"sea", -1, FindResult::Found, 0}, Step{"STOCK", 0, FindResult::Found, 3},
                             Step{"stock", 3, FindResult::AtEnd, 3}, Step{"seattle", 0, FindResult::NoMore, 0},
                             Step{"", -1, FindResult::Found, 0}, // an empty text matches all but empty rows
                             Step{"", 1, FindResult::Found, 3}, Step{"", 3, FindResult::AtEnd, 3}}) {
        std::int16_t last = step.from;
        EXPECT_EQ(findtext(rows, step.text, last), step.result) << step.text << " from " << step.from;
        EXPECT_EQ(last, step.to) << step.text << " from " << step.from;
    }
}

} // namespace
} // namespace vantor::test
