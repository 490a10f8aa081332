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

TEST_F(ScheduleCommandsTest, TheDefaultScheduleCarriesTheNumberOfTheOneBefore) {
    const ScheduleRec made = defaultschedule("ac#7 - Boeing");
    EXPECT_EQ(textOf(made), "4 AC#7 X 50% 6h IFR"
                            " | YPPH-YPEA 1/12:00:00 0/00:00:00 150 F123 0nm 0.00h 3001"
                            " | YPPH-YPEA 1/12:30:00 0/00:00:00 150 F123 0nm 0.00h 3002");
    addschedule(made, "sub test");
    EXPECT_EQ(schedulecount, 4);
    EXPECT_EQ(schedules.peek(4), made);
}

TEST_F(ScheduleCommandsTest, ACopyKeepsTheMarkAndTheLegNumbersOfItsSource) {
    countDroppedLine(); // its number counts, and the new schedule lands in the next free slot
    deleteschedbyrecnum(2);
    copyschedule(2);
    EXPECT_EQ(schedulecount, 5);
    ScheduleRec expected = schedules.HashGetSlot(2);
    EXPECT_TRUE(expected.deleted);
    EXPECT_EQ(expected.legs[3].hashindex, 2003);
    expected.recnum = 5;
    EXPECT_EQ(schedules.peek(4), expected);
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
}

TEST_F(ScheduleCommandsTest, ALegThatIsNotThereIsAFaultAndItsScheduleStillCountsAsTouched) {
    ScheduleRec touched;
    toggleleg(2, 3, touched);
    EXPECT_EQ(touched, schedules.peek(2));
    EXPECT_TRUE(touched.legs[3].deleted);
    toggleleg(1, 9, touched);
    EXPECT_EQ(touched, schedules.peek(1));
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub cmddeleteleg_click of module frmMain");
}

} // namespace
} // namespace vantor::test
