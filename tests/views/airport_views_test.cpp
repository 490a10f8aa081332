// Views: the hours of the gate table and its rows, the counts of movements for each hour, and the drawing calls of
// their chart, to the unit; the rows of the timetable, and what each view leaves out.
#include "support/test.h"
#include "views/gates.h"
#include "views/movement_chart.h"
#include "views/movements.h"
#include "views/timetable.h"

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

class MovementsTest : public Fixture {
  protected:
    // "departures / arrivals" of AAAA.
    static std::string movements(std::int16_t day) {
        MovementHours departures{};
        MovementHours arrivals{};
        countflights(departures, arrivals, "aaaa - Somewhere", day);
        return countedHours(departures) + "/ " + countedHours(arrivals);
    }
    static void addDepartures(std::size_t count, std::string_view dep) {
        addLegs(std::vector<LegRec>(count, makeLeg("AAAA", "BBBB", dep)));
    }
    // The counts printed on the left of the chart.
    std::string drawnCounts() {
        drawMovementChart(canvas, "AAAA - Somewhere", dailyView);
        std::string counts;
        for (const DrawnText& text : canvas.all<DrawnText>()) {
            counts += text.x < 100 ? text.text + " " : "";
        }
        return counts;
    }

    RecordingCanvas canvas;
};

TEST_F(MovementsTest, RepeatingSchedulesCountDailyWithoutAWrapAndWeeklyOnesOnTheirDay) {
    addPlan("8HR", "AAAA-BBBB 02:10, BBBB-AAAA 16:00 17:30");
    addPlan("12HR", "AAAA-BBBB 06:00, BBBB-AAAA 12:00 14:00");
    addPlan("24HR", "AAAA-BBBB 00:00, BBBB-AAAA 12:00 23:59:59");
    addPlan("WEEK", "AAAA-BBBB 0/08:00, BBBB-AAAA 0/23:00 1/00:30");
    gmtoffset = 0.5F; // hours are GMT whatever the display
    EXPECT_EQ(movements(dailyView), "0:1 2:1 6:1 10:1 18:2 / 14:1 17:1 23:1 ");
    EXPECT_EQ(movements(0), "8:1 / ");
    EXPECT_EQ(movements(1), "/ 0:1 ");
}

TEST_F(MovementsTest, APeriodThatLeadsNowhereCountsOnce) {
    for (const char* period : {"0HR", "HR", "-6HR", "0.4", "1E99"}) {
        traffic = {};
        forgetActions();
        addPlan(period, "AAAA-BBBB 14:00, BBBB-AAAA 12:00 nil");
        EXPECT_EQ(movements(dailyView), "14:1 / ") << period;
        EXPECT_TRUE(actionText(1).find(" in sub countflights of module modCountFlights") != std::string::npos);
        EXPECT_EQ(actionText(2), "Type mismatch(13) in sub countflights of module modCountFlights");
    }
}

TEST_F(MovementsTest, ACountStaysWithinSixteenBits) {
    addDepartures(32767, "01:00:00");
    addDepartures(2, "01:00:00");
    EXPECT_EQ(movements(dailyView), "1:32767 / ");
    EXPECT_EQ(newestAction(), "Overflow(6) in sub countflights of module modCountFlights");
}

TEST_F(MovementsTest, TheChartToTheUnit) {
    canvas.width = 400 + 48 * 80; // bars 80 wide, gaps of 10
    canvas.height = 550 + 1000;
    canvas.border = 30;
    const double base = 1550 + 60 - 350; // of the outer height
    EXPECT_EQ(drawnCounts(), "1 ");      // of an empty chart
    canvas.calls.clear();
    addDepartures(1, "02:00:00");
    addLegs(std::vector<LegRec>(4, makeLeg("CCCC", "AAAA", "03:00:00")));
    EXPECT_EQ(drawnCounts(), "1 2 3 4 ");
    EXPECT_EQ(canvas.calls[0], CanvasCall(Cleared{}));
    EXPECT_EQ(canvas.calls[1], CanvasCall(FontSize{7}));
    const auto boxes = canvas.all<FilledBox>();
    ASSERT_EQ(boxes.size(), 48U); // departures first
    EXPECT_EQ(boxes[0], (FilledBox{300, base, 370, base, 255}));
    EXPECT_EQ(boxes[2], (FilledBox{620, base - 250, 690, base, 255}));
    EXPECT_EQ(boxes[24 + 3], (FilledBox{860, base - 1000, 930, base, 16711680}));
    // Hours below, at the left edge of the red bar; counts 250 apart, 50 above their height.
    const auto texts = canvas.all<DrawnText>();
    EXPECT_EQ(texts.at(23), (DrawnText{300 + 160.0 * 23, 1550 - 200, "23"}));
    EXPECT_EQ(texts.at(24 + 3), (DrawnText{50 - 45, base - 250 * 4 - 50, "4"}));
    // Ten counts are 100 apart and need more than 200: the first keeps that from the base line (1 is 150 above, 2 is
    // 250), the next are strictly over 200 apart.
    addDepartures(9, "02:00:00");
    canvas.calls.clear();
    EXPECT_EQ(drawnCounts(), "2 5 8 ");
}

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
