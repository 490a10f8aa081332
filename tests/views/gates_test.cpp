// Views: the hours of the gate table and its rows.
#include "foundation/log.h"
#include "support/fixture.h"
#include "support/traffic.h"
#include "views/gates.h"

#include <numeric>
#include <tuple>

namespace vantor::test {
namespace {

class GatesTest : public Fixture {
  protected:
    // A schedule B - A - B whose aircraft stands at A from `landed` to `off`.
    static std::int32_t addStay(const std::string& landed, const std::string& off, std::string_view period = "24HR") {
        return addPlan(period, "BBBB-AAAA 00:00 " + landed + ", AAAA-BBBB " + off);
    }
    static std::string counted() { return countedHours(gateHours(caller, "AAAA")); }
};

TEST_F(GatesTest, BothEndsOfAStayCountInFullInTheHoursOfTheDisplay) {
    addStay("09:59", "11:00");
    addStay("10:05", "10:50");
    addStay("23:30", "00:45");                                  // over midnight: nothing
    addPlan("24HR", "AAAA-AAAA 15:00 13:00");                   // the leg after the last is the first
    addPlan("24HR", "BBBB-AAAA 00:00 17:00, xAAAA-BBBB 17:10"); // the next leg's mark is not looked at
    EXPECT_EQ(counted(), "9:1 10:2 11:1 13:1 14:1 15:1 17:1 ");
    EXPECT_EQ(newestAction(), "");
    traffic = {};
    addStay("09:00", "11:00");
    gmtoffset = -0.5F;
    EXPECT_EQ(counted(), "21:1 22:1 23:1 ");
    gmtoffset = 13.0F / 24.0F; // lands at 22, leaves after midnight
    EXPECT_EQ(counted(), "");
}

TEST_F(GatesTest, RepetitionsCountHoursLater) {
    addStay("01:30", "02:10", "8HR");
    EXPECT_EQ(counted(), "1:1 2:1 9:1 10:1 17:1 18:1 ");
    // Many repetitions of seconds fall on the same hours.
    changeSchedule(1, [](ScheduleRec& schedule) { schedule.period = "0.5"; });
    const GateHours hours = gateHours(caller, "AAAA");
    EXPECT_EQ(std::accumulate(hours.begin(), hours.end(), 0),
              2 * (48 - 3)); // three are 22 hours late and leave after midnight
}

TEST_F(GatesTest, FaultsLeaveOutTheStay) {
    addStay("12:00", "12:30");
    for (const auto& [off, period, fault] : {std::tuple{"noon", "24HR", "Type mismatch(13)"},
                                             {"09:30", "0HR", "Division by zero(11)"},
                                             {"09:30", "1E-5", "Overflow(6)"}}) { // more repetitions than 16 bits hold
        addStay("09:00", off, period);
        EXPECT_EQ(counted(), "12:1 ");
        EXPECT_EQ(newestAction(), std::string(fault) + " in sub caller of module test");
    }
}

TEST_F(GatesTest, RowsForSevenDaysFromMonday) {
    addStay("09:00", "09:30");
    addStay("09:00", "10:30");
    const ListRows rows = gateRows(caller, "AAAA");
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
