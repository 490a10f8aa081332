// Views: the counts of departures and arrivals for each hour, and the drawing calls of their chart, to the unit.
#include "foundation/log.h"
#include "support/fixture.h"
#include "support/traffic.h"
#include "views/movement_chart.h"
#include "views/movements.h"

namespace vantor::test {
namespace {

class MovementsTest : public Fixture {
  protected:
    // "departures / arrivals" of AAAA.
    static std::string movements(std::int16_t day) {
        MovementHours departures{};
        MovementHours arrivals{};
        countflights(departures, arrivals, "aaaa - Somewhere", day);
        return countedHours(departures) + "/ " + countedHours(arrivals);
    }

    static std::int32_t addRound(std::string_view dep, std::string_view arr, std::string_view period) {
        LegRec back = makeLeg("BBBB", "AAAA");
        back.arr = arr;
        return addSchedule("AC#1,N1,100%," + std::string(period) + ",IFR", {makeLeg("AAAA", "BBBB", dep), back});
    }

    static void addDepartures(std::size_t count, std::string_view dep) {
        addLegs(std::vector<LegRec>(count, makeLeg("AAAA", "BBBB", dep)));
    }
};

TEST_F(MovementsTest, RepeatingSchedulesCountDailyWithoutAWrap) {
    addRound("02:10:00", "17:30:00", "8HR");
    addRound("06:00:00", "14:00:00", "12HR");
    addRound("00:00:00", "23:59:59", "24HR");
    gmtoffset = 0.5F; // hours are GMT whatever the display
    EXPECT_EQ(movements(dailyView), "0:1 2:1 6:1 10:1 18:2 / 14:1 17:1 23:1 ");
    EXPECT_EQ(movements(0), "/ ");
}

TEST_F(MovementsTest, WeeklySchedulesCountOnTheirDay) {
    LegRec back = makeWeeklyLeg(0, "BBBB", "AAAA", "23:00:00");
    back.arrday = 1;
    back.arr = "00:30:00";
    addSchedule("AC#1,N1,100%,WEEK,IFR", {makeWeeklyLeg(0, "AAAA", "BBBB", "08:00:00"), back});
    EXPECT_EQ(movements(dailyView), "/ ");
    EXPECT_EQ(movements(0), "8:1 / ");
    EXPECT_EQ(movements(1), "/ 0:1 ");
}

TEST_F(MovementsTest, DeletedOnesDoNotCountAndARoundLegIsADeparture) {
    changeSchedule(addRound("02:00:00", "03:00:00", "24HR"), [](ScheduleRec& s) { s.deleted = true; });
    changeSchedule(addRound("04:00:00", "05:00:00", "24HR"), [](ScheduleRec& s) { s.legs[1].deleted = true; });
    addLegs({makeLeg("AAAA", "AAAA", "07:00:00")});
    countDroppedLine();
    EXPECT_EQ(movements(dailyView), "7:1 / 5:1 ");
}

TEST_F(MovementsTest, APeriodThatLeadsNowhereCountsOnce) {
    for (const char* period : {"0HR", "HR", "-6HR", "0.4", "1E99"}) {
        resetTables();
        test::forgetActions();
        addRound("14:00:00", "nil", period);
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

class MovementChartTest : public MovementsTest {
  protected:
    void SetUp() override {
        MovementsTest::SetUp();
        canvas.width = 400 + 48 * 80; // bars 80 wide, gaps of 10
        canvas.height = 550 + 1000;
        canvas.border = 30;
    }

    RecordingCanvas canvas;
    const double base = 1550 + 60 - 350; // of the outer height
};

TEST_F(MovementChartTest, BarsStandInPairsOnTheirHours) {
    addDepartures(1, "02:00:00");
    addLegs(std::vector<LegRec>(4, makeLeg("CCCC", "AAAA", "03:00:00")));
    drawMovementChart(canvas, "AAAA - Somewhere", dailyView);

    EXPECT_EQ(canvas.calls[0], CanvasCall(Cleared{}));
    EXPECT_EQ(canvas.calls[1], CanvasCall(FontSize{7}));
    const auto boxes = canvas.all<FilledBox>();
    ASSERT_EQ(boxes.size(), 48U); // departures first
    EXPECT_EQ(boxes[0], (FilledBox{300, base, 370, base, 255}));
    EXPECT_EQ(boxes[2], (FilledBox{620, base - 250, 690, base, 255}));
    EXPECT_EQ(boxes[24 + 3], (FilledBox{860, base - 1000, 930, base, 16711680}));

    // Hours below, at the left edge of the red bar; counts 250 apart, 50 above their height.
    std::vector<DrawnText> texts;
    for (int h = 0; h < 24; ++h) {
        texts.push_back({300 + 160.0 * h, 1550 - 200, std::to_string(h)});
    }
    for (int n = 1; n <= 4; ++n) {
        texts.push_back({50 - 45, base - 250 * n - 50, std::to_string(n)});
    }
    EXPECT_EQ(canvas.all<DrawnText>(), texts);
}

TEST_F(MovementChartTest, CountsThatWouldOverlapAreLeftOut) {
    addDepartures(10, "02:00:00"); // 100 apart: a label needs more than 200
    drawMovementChart(canvas, "AAAA", dailyView);
    std::string counts;
    for (const DrawnText& text : canvas.all<DrawnText>()) {
        counts += text.x < 100 ? text.text + " " : "";
    }
    // The first keeps 200 from the base line (1 is 150 above, 2 is 250), the next are strictly over 200 apart.
    EXPECT_EQ(counts, "2 5 8 ");
}

TEST_F(MovementChartTest, AnEmptyChartHasHoursAndTheLabelOne) {
    drawMovementChart(canvas, "AAAA", 3);
    for (const FilledBox& box : canvas.all<FilledBox>()) {
        EXPECT_EQ(box.y1, box.y2);
    }
    ASSERT_EQ(canvas.all<DrawnText>().size(), 25U);
    EXPECT_EQ(canvas.all<DrawnText>().back(), (DrawnText{5, base - 1000 - 50, "1"}));
}

} // namespace
} // namespace vantor::test
