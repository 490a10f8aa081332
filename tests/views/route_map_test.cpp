// Views: the drawing calls of the route map, and the sums of its window.
#include "foundation/error.h"
#include "support/test.h"
#include "views/route_map.h"

namespace vantor::test {
namespace {

constexpr Colour red = 255;
constexpr Colour green = 65280;

class RouteMapTest : public Fixture {
  protected:
    void SetUp() override {
        // 20 twips to a degree of longitude and 10 to one of latitude, of the outer size.
        canvas.border = 30;
        canvas.width = 7200 - 60;
        canvas.height = 3600 - 60;
        addAirport("AAAA", "A", 10, 20);
        addAirport("BBBB", "B", -30, 40);
        addAirport("CCCC", "C", 50, -100);
    }

    // The lines of an airport's map, as "r" or "g" and the code printed at their far end.
    [[nodiscard]] std::string linesOf(std::string_view code) {
        canvas.calls.clear();
        drawRouteMap(caller, canvas, code);
        std::string result;
        for (std::size_t i = 0; i < canvas.calls.size(); ++i) {
            if (const auto* line = std::get_if<DrawnLine>(&canvas.calls[i])) {
                const auto& label = std::get<DrawnText>(canvas.calls.at(i + 2));
                result += (line->colour == red ? "r" : "g") + label.text + " ";
            }
        }
        return result;
    }

    RecordingCanvas canvas;
};

TEST_F(RouteMapTest, LineMarkAndLabelToTheUnit) {
    addLegs({makeLeg("AAAA", "BBBB")});
    drawRouteMap(caller, canvas, "aaaa");
    // A lies at (4000, 1700), B at (4400, 2100); a character is 90 wide and 200 high.
    EXPECT_EQ(canvas.calls, (std::vector<CanvasCall>{
                                Cleared{}, DrawnLine{4000, 1700, 4400, 2100, green}, DrawnText{4400 - 45, 2000, "+"},
                                DrawnText{4400 - 360, 2100 - 300, "BBBB"}, DrawnText{4000 - 45, 1600, "o"}}));
    EXPECT_EQ(recorder.paintPumps, 1);
}

TEST_F(RouteMapTest, AnArrivalGoesToTheOriginOfTheLegBefore) {
    addPlan("24HR", "AAAA-BBBB, BBBB-CCCC, CCCC-AAAA");
    EXPECT_EQ(linesOf("CCCC"), "rAAAA gAAAA ");
    // A first leg sees the last origin of the schedule before, and the very first leg of all sees none.
    addPlan("24HR", "BBBB-CCCC");
    EXPECT_EQ(linesOf("CCCC"), "rAAAA gAAAA rCCCC ");
    EXPECT_EQ(linesOf("BBBB"), "gCCCC ");
}

TEST_F(RouteMapTest, DeletedAndWeeklyAreDrawnUnknownAirportsAreNot) {
    addPlan("x24HR", "AAAA-BBBB");
    addPlan("WEEK", "xAAAA-CCCC 1/12:00");
    addPlan("24HR", "AAAA-ZZZZ");
    countDroppedLine();
    EXPECT_EQ(linesOf("AAAA"), "gBBBB gCCCC ");
    // An unknown centre lies at 0, 0.
    EXPECT_EQ(linesOf("ZZZZ"), "rAAAA ");
    EXPECT_EQ(canvas.all<DrawnText>().back(), (DrawnText{3600 - 45, 1800 - 100, "o"}));
}

TEST_F(RouteMapTest, OfEqualRoutesTheLastDrawnStands) {
    addPlan("24HR", "AAAA-BBBB, AAAA-CCCC, BBBB-CCCC, CCCC-AAAA, AAAA-BBBB");
    EXPECT_EQ(linesOf("AAAA"), "gCCCC rBBBB gBBBB ");
    addPlan("24HR", "CCCC-CCCC, CCCC-CCCC"); // to its own origin: in both colours
    EXPECT_EQ(linesOf("CCCC"), "gAAAA rAAAA rCCCC gCCCC ");
}

TEST(MapWindow, LayoutAndZoomStopAtTheirLimits) {
    const MapLayout layout = mapLayout({601, 2001}, {1, 2});
    EXPECT_EQ(layout.frame, (MapPoint{100, 100}));
    EXPECT_EQ(layout.map, (MapPoint{1, 1}));
    EXPECT_EQ(layout.frameSize, (MapPoint{301, 801}));
    EXPECT_EQ(layout.buttonsTop, 1101);
    EXPECT_EQ(mapLayout({600, 2000}, {1, 2}).frameSize, (MapPoint{1, 2}));

    EXPECT_TRUE(mayZoomIn({25599, 25599}));
    EXPECT_FALSE(mayZoomIn({25600, 100}));
    EXPECT_FALSE(mayZoomIn({100, 25600}));
}

TEST(MapWindow, DragKeepsTheMapWithinItsOddLimits) {
    const MapPoint frame{4000, 3000};
    const auto drag = [&](double dx, double dy, MapPoint map, MapPoint size) {
        MapDrag pointer;
        pointer.press(1000, 1000);
        return pointer.move(static_cast<float>(1000 + dx), static_cast<float>(1000 + dy), true, map, size, frame);
    };
    EXPECT_EQ(drag(10, 10, {0, 0}, frame), (MapPoint{100, 100}));
    EXPECT_EQ(drag(-10, -10, {0, 0}, frame), (MapPoint{-200, -300}));
    const MapPoint large{8000, 9000}; // twice the way of the pointer
    EXPECT_EQ(drag(-100, -150, {-1000, -1000}, large), (MapPoint{-1200, -1300}));
    EXPECT_EQ(drag(500, 500, {-1000, -1000}, large), (MapPoint{0, 0}));
    EXPECT_EQ(drag(-2000, -4000, {-1000, -1000}, large), (MapPoint{4000 - 8000 - 200, 3000 - 9000 - 300}));
    EXPECT_EQ(drag(0.25, 0, {-1000, -1000}, large), (MapPoint{-1000, -1000})); // half a unit goes to even
    // Only a pressed move to another place drags.
    MapDrag pointer;
    const MapPoint size{4000, 3000};
    pointer.press(10, 10);
    EXPECT_EQ(pointer.move(50, 50, false, {0, 0}, size, size), (MapPoint{0, 0}));
    EXPECT_EQ(pointer.move(50, 50, true, {0, 0}, size, size), (MapPoint{0, 0})); // where the pointer was last
    EXPECT_EQ(pointer.move(51, 50, true, {0, 0}, size, size), (MapPoint{100, 100}));
    EXPECT_THROW(static_cast<void>(pointer.move(2e9F, 0, true, {0, 0}, size, size)), Error);
}

} // namespace
} // namespace vantor::test
