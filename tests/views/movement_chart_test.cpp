// Views: the drawing calls of the movement chart, to the unit.
#include "support/fixture.h"
#include "support/traffic.h"
#include "views/movement_chart.h"
#include "views/movements.h"

namespace vantor::test {
namespace {

class MovementChartTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        canvas.width = 400 + 48 * 80; // bars 80 wide, gaps of 10
        canvas.height = 550 + 1000;
        canvas.border = 30;
    }

    void addDepartures(int count, std::string_view dep) {
        addLegs(std::vector<LegRec>(static_cast<std::size_t>(count), makeLeg("AAAA", "BBBB", dep)));
    }

    RecordingCanvas canvas;
};

TEST_F(MovementChartTest, BarsStandInPairsOnTheirHours) {
    addDepartures(4, "02:00:00");
    addLegs({makeLeg("CCCC", "AAAA", "03:00:00")});
    drawMovementChart(canvas, "AAAA - Somewhere", dailyView);

    ASSERT_GE(canvas.calls.size(), 3U);
    EXPECT_EQ(canvas.calls[0], CanvasCall(Cleared{}));
    EXPECT_EQ(canvas.calls[1], CanvasCall(FontSize{7}));
    const auto boxes = canvas.all<FilledBox>();
    ASSERT_EQ(boxes.size(), 48U);
    const double base = 1550 + 60 - 350; // of the outer height
    EXPECT_EQ(boxes[0], (FilledBox{300, base, 370, base, 255}));
    EXPECT_EQ(boxes[2], (FilledBox{620, base - 1000, 690, base, 255}));
    EXPECT_EQ(boxes[24], (FilledBox{380, base, 450, base, 16711680}));
    EXPECT_EQ(boxes[24 + 3], (FilledBox{860, base - 250, 930, base, 16711680}));

    const auto texts = canvas.all<DrawnText>();
    ASSERT_GE(texts.size(), 24U);
    for (int h = 0; h < 24; ++h) { // hours below, at the left edge of the red bar
        EXPECT_EQ(texts[static_cast<std::size_t>(h)], (DrawnText{300 + 160.0 * h, 1550 - 200, std::to_string(h)}));
    }
    // Counts on the left: 250 apart, 50 above their height, and 200 high, so that all find room.
    ASSERT_EQ(texts.size(), 28U);
    for (int n = 1; n <= 4; ++n) {
        EXPECT_EQ(texts[static_cast<std::size_t>(23 + n)],
                  (DrawnText{50 - 45, base - 250 * n - 50, std::to_string(n)}));
    }
}

TEST_F(MovementChartTest, CountsThatWouldOverlapAreLeftOut) {
    addDepartures(10, "02:00:00"); // 100 apart: a label needs more than 200
    drawMovementChart(canvas, "AAAA", dailyView);
    const auto texts = canvas.all<DrawnText>();
    std::vector<std::string> counts;
    for (std::size_t i = 24; i < texts.size(); ++i) {
        counts.push_back(texts[i].text);
    }
    // The first keeps 200 from the base line (1 is 150 above, 2 is 250), the next are strictly over 200 apart.
    EXPECT_EQ(counts, (std::vector<std::string>{"2", "5", "8"}));
}

TEST_F(MovementChartTest, AnEmptyChartHasHoursAndTheLabelOne) {
    drawMovementChart(canvas, "AAAA", 3);
    for (const FilledBox& box : canvas.all<FilledBox>()) {
        EXPECT_EQ(box.y1, box.y2);
    }
    ASSERT_EQ(canvas.all<DrawnText>().size(), 25U);
    EXPECT_EQ(canvas.all<DrawnText>().back(), (DrawnText{5, 1260 - 1000 - 50, "1"}));
}

} // namespace
} // namespace vantor::test
