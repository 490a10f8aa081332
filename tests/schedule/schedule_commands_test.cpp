#include "core/tables.h"
#include "foundation/log.h"
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
