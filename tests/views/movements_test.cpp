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

} // namespace
} // namespace vantor::test
