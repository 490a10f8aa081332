// Views: the rows of the timetable, and what each view leaves out.
#include "foundation/log.h"
#include "support/fixture.h"
#include "support/traffic.h"
#include "views/gates.h"
#include "views/movements.h"
#include "views/timetable.h"

namespace vantor::test {
namespace {

class TimetableTest : public Fixture {
  protected:
    // The rows with a bar behind each.
    static std::string table(std::string_view code) {
        std::string text;
        for (const ListRow& row : timetableRows(caller, code)) {
            EXPECT_EQ(row.itemData, 0);
            text += row.text + "|";
        }
        return text;
    }
    // Times, directions and flights of YPPH, as in "08:30>1 20:30<2 ": one for each row but the empty one at the end.
    static std::string flights() {
        std::string text;
        for (const ListRow& row : timetableRows(caller, "YPPH")) {
            text += row.text.empty() ? "" : row.text.substr(0, 5) + row.text[6] + row.text[17] + " ";
        }
        return text;
    }
};

TEST_F(TimetableTest, ToldToTheCharacterInClockOrder) {
    addAircraft("AC#1", "\"Boeing 737-400\"");
    addAirport("YPPH", "Perth, Western Australia");
    addAirport("YPEA", "Pearce");
    addPlan("24HR", "YPEA-YPPH 11:00 12:30 7, YPPH-YPEA 12:30 13:05 8");
    addSchedule("AC#9,N1,100%,24HR,IFR", {makeLeg("YPPH", "ZZZZ", "09:15", "9")});
    addSchedule("AC#9,N1,100%,24HR,IFR", {makeLeg("YPPH", "YPPH", "10:00", "5")}); // departs only
    EXPECT_EQ(table("YPPH"), "09:15 >D> Flight 9 to ZZZZ  AC: AC#9|10:00 >D> Flight 5 to Perth  AC: AC#9|"
                             "12:30 <A< Flight 7 from Pearce AC: \"Boeing 737-400\"|"
                             "12:30 >D> Flight 8 to Pearce  AC: \"Boeing 737-400\"||");
    // The other airport's name goes up to its comma.
    EXPECT_EQ(table("YPEA"), "11:00 >D> Flight 7 to Perth  AC: \"Boeing 737-400\"|"
                             "13:05 <A< Flight 8 from Perth AC: \"Boeing 737-400\"||");
    EXPECT_EQ(table("EDDF"), "|");
}

TEST_F(TimetableTest, EachRepetitionHasItsRow) {
    addPlan("12HR", "YPPH-YPEA 20:30");
    // 24 / 16 = 1.5 and 24 / 9.6 = 2.5 both give 2; 9.6 hours late is 10.
    for (const auto& [period, rows] :
         {std::pair{"12HR", "08:30>1 20:30>1 "}, {"16HR", "12:30>1 20:30>1 "}, {"9.6", "06:30>1 20:30>1 "}}) {
        changeSchedule(1, [&](ScheduleRec& schedule) { schedule.period = period; });
        EXPECT_EQ(flights(), rows);
    }
}

TEST_F(TimetableTest, SortedByTheShiftedTimeWithoutRegardToCase) {
    gmtoffset = 8.0F / 24.0F;
    for (const char* flight : {"b", "A", "B", "b"}) { // equal rows stay
        addPlan("24HR", std::string("YPPH-YPEA 08:00 08:30 ") + flight);
    }
    addPlan("24HR", "YPPH-YPEA 20:00");
    EXPECT_EQ(flights(), "04:00>1 16:00>A 16:00>b 16:00>B 16:00>b ");
}

TEST_F(TimetableTest, FaultsAreRecordedAndTheRestStands) {
    addPlan("24HR", "YPPH-YPEA 25:00 08:30 1, YPPH-YPEA 09:00 9:xx 2");
    EXPECT_EQ(flights(), "09:00>2 ");
    EXPECT_EQ(newestAction(), "Type mismatch(13) in sub caller of module test");
    addPlan("6h", "YPPH-YPEA 10:00 11:00 3");
    for (const auto& [period, fault] :
         {std::pair{"XHR", "Division by zero(11)"}, {"1E-9", "Overflow(6)"}, {"-6HR", "Type mismatch(13)"}}) {
        changeSchedule(2, [&](ScheduleRec& schedule) { schedule.period = period; });
        EXPECT_EQ(flights(), "09:00>2 ");
        EXPECT_EQ(newestAction(), std::string(fault) + " in sub caller of module test");
    }
    changeSchedule(2, [&](ScheduleRec& schedule) { schedule.period = "1E-6"; }); // its rows end at the limit
    EXPECT_EQ(timetableRows(caller, "YPPH").size(), timetableLimit + 1);
    EXPECT_EQ(newestAction(), "Out of memory(7) in sub caller of module test");
}

TEST_F(TimetableTest, EachViewLeavesOutWhatIsDeletedWeeklyOrSpelledOtherwise) {
    addPlan("24HR", "YPEA-YPPH 00:00 03:00, YPPH-YPEA 04:00");
    const auto views = [] {
        MovementHours departures{};
        MovementHours arrivals{};
        countflights(departures, arrivals, "YPPH", dailyView);
        return flights() + "/ " + countedHours(gateHours(caller, "YPPH")) + "/ " + countedHours(departures) + "/ " +
               countedHours(arrivals);
    };
    const std::string all = "03:00<1 04:00>1 / 3:1 4:1 / 4:1 / 3:1 ";
    EXPECT_EQ(views(), all);
    addPlan("x24HR", "YPEA-YPPH 00:00 13:00, YPPH-YPEA 14:00");
    addPlan("24HR", "xYPEA-YPPH 00:00 13:00, xYPPH-YPEA 14:00");
    addPlan("WEEK", "YPEA-YPPH 1/00:00 1/13:00, YPPH-YPEA 1/14:00");
    addPlan("24HR", "YPEA-ypph 00:00 13:00, ypph-YPEA 14:00");
    countDroppedLine();
    EXPECT_EQ(views(), all);
    addPlan("24HR", "YPPH-YPPH 07:00 06:00"); // a round is a departure alone
    EXPECT_EQ(views(), "03:00<1 04:00>1 07:00>1 / 3:1 4:1 6:1 7:1 / 4:1 7:1 / 3:1 ");
    EXPECT_EQ(newestAction(), "");
}

} // namespace
} // namespace vantor::test
