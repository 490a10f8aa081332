// Views: the hours of the gate table and its rows.
#include "foundation/log.h"
#include "support/fixture.h"
#include "support/traffic.h"
#include "views/gates.h"

#include <algorithm>
#include <numeric>

namespace vantor::test {
namespace {

class GatesTest : public Fixture {
  protected:
    // A schedule B - A - B whose aircraft stands at A from `landed` to `off`.
    static std::int32_t addStay(std::string_view landed, std::string_view off, std::string_view period = "24HR") {
        LegRec in = makeLeg("BBBB", "AAAA", "00:00:00");
        in.arr = landed;
        LegRec out = makeLeg("AAAA", "BBBB", off);
        return addSchedule("AC#1,N1,100%," + std::string(period) + ",IFR", {in, out});
    }

    static std::string counted() { return countedHours(gateHours("AAAA")); }
};

TEST_F(GatesTest, BothEndsOfAStayCountInFull) {
    addStay("09:59:00", "11:00:00");
    addStay("10:05:00", "10:50:00");
    addStay("23:30:00", "00:45:00"); // over midnight: nothing
    EXPECT_EQ(counted(), "9:1 10:2 11:1 ");
}

TEST_F(GatesTest, RepetitionsCountHoursLater) {
    addStay("01:30:00", "02:10:00", "8HR");
    EXPECT_EQ(counted(), "1:1 2:1 9:1 10:1 17:1 18:1 ");
    // Many repetitions of seconds fall on the same hours.
    changeSchedule(1, [](ScheduleRec& schedule) { schedule.period = "0.5"; });
    const GateHours hours = gateHours("AAAA");
    EXPECT_EQ(std::accumulate(hours.begin(), hours.end(), 0),
              2 * (48 - 3)); // three are 22 hours late and leave after midnight
}

TEST_F(GatesTest, HoursAreThoseOfTheDisplay) {
    addStay("09:00:00", "11:00:00");
    gmtoffset = -0.5F;
    EXPECT_EQ(counted(), "21:1 22:1 23:1 ");
    gmtoffset = 13.0F / 24.0F; // lands at 22, leaves after midnight
    EXPECT_EQ(counted(), "");
}

TEST_F(GatesTest, DeletedAndWeeklyAreLeftOutButNotTheNextLeg) {
    const std::int32_t stay = addStay("09:00:00", "10:00:00");
    changeSchedule(stay, [](ScheduleRec& schedule) { schedule.legs[2].deleted = true; });
    EXPECT_EQ(counted(), "9:1 10:1 ");
    changeSchedule(stay, [](ScheduleRec& schedule) { schedule.legs[1].deleted = true; });
    addSchedule("AC#1,N1,100%,WEEK,IFR", {makeWeeklyLeg(1, "BBBB", "AAAA"), makeWeeklyLeg(1, "AAAA", "BBBB")});
    changeSchedule(addStay("09:00:00", "10:00:00"), [](ScheduleRec& schedule) { schedule.deleted = true; });
    EXPECT_EQ(counted(), "");
    // The leg after the last is the first: a lone leg waits for its own departure.
    LegRec lone = makeLeg("AAAA", "AAAA", "15:00:00");
    lone.arr = "13:00:00";
    addLegs({lone});
    EXPECT_EQ(counted(), "13:1 14:1 15:1 ");
    EXPECT_EQ(newestAction(), "");
}

TEST_F(GatesTest, FaultsLeaveOutTheStay) {
    addStay("12:00:00", "12:30:00");
    addStay("09:00:00", "noon");
    EXPECT_EQ(counted(), "12:1 ");
    EXPECT_EQ(newestAction(), "Type mismatch(13) in sub displaymaxgates of module frmMain");
    addStay("09:00:00", "09:30:00", "0HR");
    EXPECT_EQ(counted(), "12:1 ");
    EXPECT_EQ(newestAction(), "Division by zero(11) in sub displaymaxgates of module frmMain");
    addStay("13:00:00", "13:30:00", "1E-5"); // more repetitions than 16 bits hold
    EXPECT_EQ(counted(), "12:1 ");
    EXPECT_EQ(newestAction(), "Overflow(6) in sub displaymaxgates of module frmMain");
}

TEST_F(GatesTest, RowsForSevenDaysFromMonday) {
    addStay("09:00:00", "09:30:00");
    addStay("09:00:00", "10:30:00");
    const ListRows rows = gateRows("AAAA");
    ASSERT_EQ(rows.size(), 1U + 7 * 26);
    for (const auto& [row, text] : {std::pair{0U, "Gate requirements for AAAA"},
                                    {1, "Monday"},
                                    {2, "\t0:00 - 0"},
                                    {11, "\t9:00 - 2"},
                                    {12, "\t10:00 - 1"},
                                    {26, "Peak gates required - 2"},
                                    {27, "Tuesday"},
                                    {1 + 6 * 26, "Sunday"},
                                    {7 * 26, "Peak gates required - 2"}}) {
        EXPECT_EQ(rows[row].text, text);
    }
}

} // namespace
} // namespace vantor::test
