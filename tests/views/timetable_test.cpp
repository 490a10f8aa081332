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

    static std::vector<std::string> texts(std::string_view code) {
        std::vector<std::string> result;
        for (const ListRow& row : timetableRows(code)) {
            EXPECT_EQ(row.itemData, 0);
            result.push_back(row.text);
        }
        return result;
    }

    using Rows = std::vector<std::string>;
};

TEST_F(TimetableTest, ToldToTheCharacterInClockOrder) {
    addLegs({leg("YPEA", "YPPH", "11:00:00", "12:30:00", "7"), leg("YPPH", "YPEA", "12:30:00", "13:05:00", "8")});
    addSchedule("AC#9,N1,100%,24HR,IFR", {leg("YPPH", "ZZZZ", "09:15:00", "10:00:00", "9")});
    addSchedule("AC#9,N1,100%,24HR,IFR", {leg("YPPH", "YPPH", "10:00:00", "11:00:00", "5")}); // departs only
    EXPECT_EQ(texts("YPPH"), (Rows{"09:15 >D> Flight 9 to ZZZZ  AC: AC#9", "10:00 >D> Flight 5 to Perth  AC: AC#9",
                                   "12:30 <A< Flight 7 from Pearce AC: \"Boeing 737-400\"",
                                   "12:30 >D> Flight 8 to Pearce  AC: \"Boeing 737-400\"", ""}));
    // The other airport's name goes up to its comma.
    EXPECT_EQ(texts("YPEA"), (Rows{"11:00 >D> Flight 7 to Perth  AC: \"Boeing 737-400\"",
                                   "13:05 <A< Flight 8 from Perth AC: \"Boeing 737-400\"", ""}));
}

TEST_F(TimetableTest, EachRepetitionHasItsRow) {
    addSchedule("AC#1,N1,100%,12HR,IFR", {leg("YPPH", "YPEA", "20:30:00", "21:00:00")});
    EXPECT_EQ(texts("YPPH").size(), 3U);
    EXPECT_EQ(texts("YPPH")[0].substr(0, 5), "08:30");
    EXPECT_EQ(texts("YPPH")[1].substr(0, 5), "20:30");
    // 24 / 16 = 1.5 and 24 / 9.6 = 2.5 both give 2; 9.6 hours late is 10.
    for (const auto& [period, second] : {std::pair{"16HR", "12:30"}, std::pair{"9.6", "06:30"}}) {
        changeSchedule(1, [&](ScheduleRec& schedule) { schedule.period = period; });
        ASSERT_EQ(texts("YPPH").size(), 3U) << period;
        EXPECT_EQ(texts("YPPH")[0].substr(0, 5), second);
    }
}

TEST_F(TimetableTest, DeletedWeeklyAndOtherCasesAreLeftOut) {
    const std::int32_t first = addLegs({leg("YPPH", "YPEA", "01:00:00", "02:00:00")});
    addSchedule("AC#1,N1,100%,WEEK,IFR", {makeWeeklyLeg(1, "YPPH", "YPEA"), makeWeeklyLeg(2, "YPEA", "YPPH")});
    addLegs({leg("ypph", "ypea", "03:00:00", "04:00:00")});
    countDroppedLine();
    EXPECT_EQ(texts("YPPH").size(), 2U);
    changeSchedule(first, [](ScheduleRec& schedule) { schedule.legs[1].deleted = true; });
    EXPECT_EQ(texts("YPPH"), Rows{""});
    changeSchedule(first, [](ScheduleRec& schedule) {
        schedule.legs[1].deleted = false;
        schedule.deleted = true;
    });
    EXPECT_EQ(texts("YPPH"), Rows{""});
}

TEST_F(TimetableTest, SortedByTheShiftedTime) {
    gmtoffset = 8.0F / 24.0F;
    addLegs({leg("YPPH", "YPEA", "08:00:00", "08:30:00", "1"), leg("YPPH", "YPEA", "20:00:00", "20:30:00", "2")});
    ASSERT_EQ(texts("YPPH").size(), 3U);
    EXPECT_EQ(texts("YPPH")[0].substr(0, 18), "04:00 >D> Flight 2");
    EXPECT_EQ(texts("YPPH")[1].substr(0, 18), "16:00 >D> Flight 1");
}

TEST_F(TimetableTest, EqualRowsStayAndCaseDoesNotCount) {
    for (const char* flight : {"b", "A", "B", "b"}) {
        addLegs({leg("YPPH", "YPEA", "08:00:00", "08:30:00", flight)});
    }
    std::string flights;
    for (const std::string& row : texts("YPPH")) {
        flights += row.empty() ? '.' : row.at(17);
    }
    EXPECT_EQ(flights, "AbBb.");
}

TEST_F(TimetableTest, FaultsAreRecordedAndTheRestStands) {
    addLegs({leg("YPPH", "YPEA", "25:00:00", "08:30:00", "1"), leg("YPPH", "YPEA", "09:00:00", "9:xx", "2")});
    EXPECT_EQ(texts("YPPH").size(), 2U);
    EXPECT_EQ(newestAction(), "Type mismatch(13) in sub displaytimetable of module frmMain");
    addSchedule("AC#1,N1,100%,XHR,IFR", {leg("YPPH", "YPEA", "10:00:00", "11:00:00", "3")});
    EXPECT_EQ(texts("YPPH").size(), 2U);
    EXPECT_EQ(newestAction(), "Division by zero(11) in sub displaytimetable of module frmMain");
    changeSchedule(2, [](ScheduleRec& schedule) { schedule.period = "1E-9"; });
    EXPECT_EQ(texts("YPPH").size(), 2U);
    EXPECT_EQ(newestAction(), "Overflow(6) in sub displaytimetable of module frmMain");
    changeSchedule(2, [](ScheduleRec& schedule) { schedule.period = "-6HR"; });
    EXPECT_EQ(texts("YPPH").size(), 2U);
}

TEST_F(TimetableTest, APeriodOfASecondEndsAtTheLimit) {
    addSchedule("AC#1,N1,100%,1E-6,IFR", {leg("YPPH", "YPEA", "10:00:00", "11:00:00")});
    EXPECT_EQ(timetableRows("YPPH").size(), timetableLimit + 1);
    EXPECT_EQ(newestAction(), "Out of memory(7) in sub displaytimetable of module frmMain");
}

TEST_F(TimetableTest, PrintoutKeepsTheWholeTitleAndDropsQuotes) {
    const SchedulePrintout printout = schedulePrintout("YPPH", {{"12:30 AC: \"B\"\"737\"", 0}, {"", 0}});
    EXPECT_EQ(printout.heading, "Schedule for Perth, Western Australia");
    EXPECT_EQ(printout.rows, (Rows{"12:30 AC: B737", ""}));
    EXPECT_EQ(schedulePrintout("ZZZZ", {}).heading, "Schedule for ZZZZ");
}

} // namespace
} // namespace vantor::test
