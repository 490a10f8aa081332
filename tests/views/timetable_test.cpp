// Views: the rows of the timetable, and its printout.
#include "foundation/log.h"
#include "support/fixture.h"
#include "support/traffic.h"
#include "views/timetable.h"

namespace vantor::test {
namespace {

class TimetableTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        addAircraft("AC#1", "\"Boeing 737-400\"");
        addAirport("YPPH", "Perth, Western Australia");
        addAirport("YPEA", "Pearce");
    }

    static LegRec leg(std::string_view from, std::string_view to, std::string_view dep, std::string_view arr,
                      std::string_view flight = "1") {
        LegRec result = makeLeg(from, to, dep, flight);
        result.arr = arr;
        return result;
    }

    // The rows with a bar behind each.
    static std::string table(std::string_view code) {
        std::string text;
        for (const ListRow& row : timetableRows(code)) {
            EXPECT_EQ(row.itemData, 0);
            text += row.text + "|";
        }
        return text;
    }

    // Times, directions and flights of YPPH, as in "08:30>1 20:30<2 ": one for each row but the empty one at the end.
    static std::string flights() {
        std::string text;
        for (const ListRow& row : timetableRows("YPPH")) {
            text += row.text.empty() ? "" : row.text.substr(0, 5) + row.text[6] + row.text[17] + " ";
        }
        return text;
    }
};

TEST_F(TimetableTest, ToldToTheCharacterInClockOrder) {
    addLegs({leg("YPEA", "YPPH", "11:00:00", "12:30:00", "7"), leg("YPPH", "YPEA", "12:30:00", "13:05:00", "8")});
    addSchedule("AC#9,N1,100%,24HR,IFR", {leg("YPPH", "ZZZZ", "09:15:00", "10:00:00", "9")});
    addSchedule("AC#9,N1,100%,24HR,IFR", {leg("YPPH", "YPPH", "10:00:00", "11:00:00", "5")}); // departs only
    EXPECT_EQ(table("YPPH"), "09:15 >D> Flight 9 to ZZZZ  AC: AC#9|10:00 >D> Flight 5 to Perth  AC: AC#9|"
                             "12:30 <A< Flight 7 from Pearce AC: \"Boeing 737-400\"|"
                             "12:30 >D> Flight 8 to Pearce  AC: \"Boeing 737-400\"||");
    // The other airport's name goes up to its comma.
    EXPECT_EQ(table("YPEA"), "11:00 >D> Flight 7 to Perth  AC: \"Boeing 737-400\"|"
                             "13:05 <A< Flight 8 from Perth AC: \"Boeing 737-400\"||");
}

TEST_F(TimetableTest, EachRepetitionHasItsRow) {
    addSchedule("AC#1,N1,100%,12HR,IFR", {leg("YPPH", "YPEA", "20:30:00", "21:00:00")});
    // 24 / 16 = 1.5 and 24 / 9.6 = 2.5 both give 2; 9.6 hours late is 10.
    for (const auto& [period, rows] :
         {std::pair{"12HR", "08:30>1 20:30>1 "}, {"16HR", "12:30>1 20:30>1 "}, {"9.6", "06:30>1 20:30>1 "}}) {
        changeSchedule(1, [&](ScheduleRec& schedule) { schedule.period = period; });
        EXPECT_EQ(flights(), rows);
    }
}

TEST_F(TimetableTest, DeletedWeeklyAndOtherCasesAreLeftOut) {
    addLegs({leg("YPPH", "YPEA", "01:00:00", "02:00:00")});
    addSchedule("AC#1,N1,100%,WEEK,IFR", {makeWeeklyLeg(1, "YPPH", "YPEA"), makeWeeklyLeg(2, "YPEA", "YPPH")});
    addLegs({leg("ypph", "ypea", "03:00:00", "04:00:00")});
    changeSchedule(addLegs({leg("YPPH", "YPEA", "05:00:00", "06:00:00")}),
                   [](ScheduleRec& schedule) { schedule.legs[1].deleted = true; });
    changeSchedule(addLegs({leg("YPPH", "YPEA", "07:00:00", "08:00:00")}),
                   [](ScheduleRec& schedule) { schedule.deleted = true; });
    countDroppedLine();
    EXPECT_EQ(flights(), "01:00>1 ");
    EXPECT_EQ(table("EDDF"), "|");
    EXPECT_EQ(newestAction(), "");
}

TEST_F(TimetableTest, SortedByTheShiftedTimeWithoutRegardToCase) {
    gmtoffset = 8.0F / 24.0F;
    for (const char* flight : {"b", "A", "B", "b"}) { // equal rows stay
        addLegs({leg("YPPH", "YPEA", "08:00:00", "08:30:00", flight)});
    }
    addLegs({leg("YPPH", "YPEA", "20:00:00", "20:30:00")});
    EXPECT_EQ(flights(), "04:00>1 16:00>A 16:00>b 16:00>B 16:00>b ");
}

TEST_F(TimetableTest, FaultsAreRecordedAndTheRestStands) {
    addLegs({leg("YPPH", "YPEA", "25:00:00", "08:30:00", "1"), leg("YPPH", "YPEA", "09:00:00", "9:xx", "2")});
    EXPECT_EQ(flights(), "09:00>2 ");
    EXPECT_EQ(newestAction(), "Type mismatch(13) in sub displaytimetable of module frmMain");
    addSchedule("AC#1,N1,100%,6h,IFR", {leg("YPPH", "YPEA", "10:00:00", "11:00:00", "3")});
    for (const auto& [period, fault] :
         {std::pair{"XHR", "Division by zero(11)"}, {"1E-9", "Overflow(6)"}, {"-6HR", "Type mismatch(13)"}}) {
        changeSchedule(2, [&](ScheduleRec& schedule) { schedule.period = period; });
        EXPECT_EQ(flights(), "09:00>2 ");
        EXPECT_EQ(newestAction(), std::string(fault) + " in sub displaytimetable of module frmMain");
    }
    changeSchedule(2, [&](ScheduleRec& schedule) { schedule.period = "1E-6"; }); // its rows end at the limit
    EXPECT_EQ(timetableRows("YPPH").size(), timetableLimit + 1);
    EXPECT_EQ(newestAction(), "Out of memory(7) in sub displaytimetable of module frmMain");
}

} // namespace
} // namespace vantor::test
