// Explorer: the network of some legs, what it tells, and how it is drawn.
#include "explorer/routes_clip.h"
#include "explorer/routes_drawing.h"
#include "explorer/routes_svg.h"
#include "support/test.h"

namespace vantor::test {
namespace {

class RoutesTest : public Fixture {
  protected:
    void SetUp() override {
        addAirport("EGLL", "London Heathrow", 51.47F, -0.45F);
        addAirport("KJFK", "New York", 40.64F, -73.78F);
        addAirport("NZAA", "Auckland", -37.0F, 174.8F);
        addAirport("PHNL", "PHNL", 21.3F, -157.9F);
        addAircraft("AC#1", "Jumbo");
        addAircraft("AC#2", "Twin & Co");
    }

    static RouteNetwork network(bool withDeleted = false, std::size_t most = 100) {
        RouteTally tally(withDeleted);
        for (std::int32_t recnum = 1; recnum <= schedulecount; ++recnum) {
            for (std::int32_t leg = 1; leg <= schedules.peek(recnum).legcount; ++leg) {
                tally.add({recnum, leg});
            }
        }
        return tally.take(most);
    }

    static RoutesScene sceneOf(const RouteNetwork& network, RouteColouring colouring) {
        RoutesScene scene(network, colouring);
        EXPECT_TRUE(scene.build([] { return false; }));
        return scene;
    }

    // Each route as "AAAA-BBBB out/back type:flights".
    static std::string textOf(const RouteNetwork& network) {
        std::string text;
        for (const Route& route : network.routes) {
            text += std::string(network.airports[route.first].code.text()) + "-" +
                    std::string(network.airports[route.second].code.text()) + " " + flightsText(route.out) + "/" +
                    flightsText(route.back);
            for (const RouteUse& use : route.uses) {
                text += " " + network.types[use.type].title + ":" + flightsText(use.flights);
            }
            text += "; ";
        }
        return text;
    }
};

TEST_F(RoutesTest, CountsFlightsInAWeek) {
    addSchedule("AC#1,N1,100%,WEEK,IFR", {makeWeeklyLeg(1, "EGLL", "KJFK"), makeWeeklyLeg(2, "KJFK", "EGLL"),
                                          makeWeeklyLeg(3, "EGLL", "KJFK"), makeWeeklyLeg(4, "KJFK", "KJFK")});
    addSchedule("AC#2,N2,100%,24Hr,IFR", {makeLeg("EGLL", "KJFK"), makeLeg("NZAA", "PHNL")});
    addSchedule("AC#2,N3,100%,5h,IFR", {makeLeg("PHNL", "EGLL"), makeLeg("EGLL", "ZZZZ")});
    addSchedule("AC#9,N4,100%,Hr,IFR", {makeLeg("NZAA", "EGLL")});
    const std::int32_t deleted = addSchedule("AC#1,N5,100%,24Hr,IFR", {makeLeg("PHNL", "KJFK")});
    changeSchedule(deleted, [](ScheduleRec& record) { record.deleted = true; });
    changeSchedule(1, [](ScheduleRec& record) { record.legs[3].deleted = true; });

    const RouteNetwork some = network();
    EXPECT_EQ(textOf(some), "EGLL-PHNL 0/33.6 Twin & Co:33.6; EGLL-KJFK 8/1 Twin & Co:7 Jumbo:2; "
                            "NZAA-PHNL 7/0 Twin & Co:7; EGLL-NZAA 0/1 AC#9:1; ");
    EXPECT_EQ(some.airports[0].code.text(), "EGLL");
    EXPECT_DOUBLE_EQ(some.airports[0].movements(), 2 + 7 + 33.6 * 2 + 1);
    EXPECT_EQ(some.airports[0].routes, 3U);
    EXPECT_DOUBLE_EQ(some.unplaced, 33.6);

    const RouteNetwork all = network(true, 1);
    EXPECT_EQ(textOf(all), "EGLL-PHNL 0/33.6 Twin & Co:33.6; ");
    const RoutesScene scene = sceneOf(all, RouteColouring::Direction);
    EXPECT_EQ(scene.summary(1000), "5 routes, 4 airports, 93.2 flights a week; the busiest 1 are drawn; 33.6 flights "
                                   "to airports without a place");
    RouteTally tally(false);
    EXPECT_EQ(errorOf([&] { tally.add({1, 9}); }), 9);
}

TEST_F(RoutesTest, TellsWhatStandsUnderThePointer) {
    addSchedule("AC#1,N1,100%,WEEK,IFR", {makeWeeklyLeg(1, "NZAA", "PHNL"), makeWeeklyLeg(2, "PHNL", "NZAA")});
    addLegs({makeLeg("EGLL", "KJFK")});
    RoutesScene scene = sceneOf(network(), RouteColouring::Direction);
    const auto legend = [&] {
        std::string text;
        for (const LegendRow& row : scene.legend()) {
            text += row.text + "; ";
        }
        return text;
    };
    EXPECT_EQ(legend(), "Both ways; One way, westbound; below 7 flights a week; 7 and more; ");
    EXPECT_EQ(scene.looks(0).arrow, 1);
    EXPECT_EQ(scene.looks(1).arrow, 0);

    // On the meridian of 180 degrees the line from Auckland lies in the neighbour of its own world.
    const FlatPoint dateLine = project({-27.8, -180});
    ASSERT_EQ(scene.routeAt(dateLine, 0.01, 9), 1U);
    EXPECT_EQ(scene.routeAt(dateLine, 0.01, 1), std::nullopt) << "one that is not drawn";
    EXPECT_EQ(scene.routeAt(dateLine, 0.000001, 9), std::nullopt);
    EXPECT_EQ(scene.routeText(1), "NZAA - PHNL, 3,824 NM\nNZAA to PHNL: 1 flight a week\nPHNL to NZAA: 1 flight a "
                                  "week\nJumbo: 2");
    const FlatPoint honolulu = project({21.3, -157.9 + 360});
    ASSERT_TRUE(scene.airportAt(honolulu, 0.001).has_value());
    EXPECT_EQ(scene.airportText(*scene.airportAt(honolulu, 0.001)), "PHNL\n1 departure and 1 arrival a week\n1 route");
    EXPECT_EQ(scene.airportText(0), "EGLL - London Heathrow\n7 departures and 0 arrivals a week\n1 route");

    scene.colourBy(RouteColouring::AircraftType);
    EXPECT_EQ(legend(), "Jumbo; below 7 flights a week; 7 and more; ");
}

TEST_F(RoutesTest, DrawsTheBusiestThatThereIsRoomFor) {
    const auto code = [](int i) { return "X" + std::to_string(100 + i); };
    std::vector<LegRec> legs;
    for (int i = 0; i < 40; ++i) {
        addAirport(code(i), code(i), static_cast<float>(i), static_cast<float>(4 * i));
        for (int j = 0; j < i; ++j) {
            legs.push_back(makeLeg(code(i), code(j)));
        }
    }
    addLegs(legs);
    const RoutesScene scene = sceneOf(network(false, 1000), RouteColouring::Direction);
    EXPECT_EQ(scene.routesAt(10), 500U);
    EXPECT_TRUE(scene.summary(10).ends_with("; the busiest 500 are drawn, more as you zoom in"));
    EXPECT_GT(scene.routesAt(500), 500U);
    EXPECT_LT(scene.routesAt(500), 780U);
    EXPECT_EQ(scene.routesAt(100000), 780U);
    EXPECT_TRUE(scene.summary(100000).ends_with("flights a week"));
}

SvgFont testFont() {
    return {"Sans", 12, 14, 11, [](std::string_view text) { return 8.0 * static_cast<double>(text.size()); }};
}

std::size_t countOf(std::string_view text, std::string_view part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

TEST_F(RoutesTest, DrawsAPictureThatViewersRead) {
    addSchedule("AC#1,N1,100%,WEEK,IFR", {makeWeeklyLeg(1, "NZAA", "PHNL"), makeWeeklyLeg(2, "PHNL", "NZAA")});
    addSchedule("AC#2,N1,100%,24Hr,IFR", {makeLeg("EGLL", "KJFK")});
    const RoutesScene scene = sceneOf(network(), RouteColouring::AircraftType);
    const auto picture = [&](const MapView& view, std::function<bool()> enough) {
        SvgSurface surface(view.width, view.height, testFont());
        const std::vector<MapLabel> labels = labelsOf(scene, surface, view.scale);
        const MapContent content{scene, mapColours(false), labels};
        MapDrawing drawing(content, view);
        while (!drawing.goOn(surface, enough)) {
        }
        drawLegend(surface, content, view);
        return surface.file("A < B");
    };
    const std::string world = picture({{0.5, 0}, 800, 800, 600}, [] { return false; });
    EXPECT_EQ(picture({{0.5, 0}, 800, 800, 600}, [] { return true; }), world); // in the smallest slices
    EXPECT_TRUE(contains(world, "<title>A &lt; B</title>"));
    EXPECT_TRUE(contains(world, ">Twin &amp; Co</text>"));
    EXPECT_EQ(countOf(world, ">EGLL</text>"), 2U);
    EXPECT_EQ(countOf(world, "<circle"), 4U);
    EXPECT_EQ(countOf(world, "stroke-dasharray=\"8 4\""), 2U + 1U); // at both ends of the world, and in the legend
    // A part of it holds that part alone.
    const std::string europe = picture({project({50, 0}), 8000, 400, 400}, [] { return false; });
    EXPECT_EQ(countOf(europe, ">EGLL</text>"), 2U);
    EXPECT_FALSE(contains(europe, "KJFK"));
    EXPECT_FALSE(contains(europe, "dasharray=\"8 4\" stroke-dashoffset=\"0\""));
    EXPECT_LT(europe.size(), world.size() * 3);
}

TEST(RouteLabelsTest, GiveWayByImportance) {
    const std::vector<FlatPoint> places{{0.5, 0}, {0.501, 0}, {0.502, 0}, {0.503, 0}, {0.504, 0}, {0.9995, 0}, {0, 0}};
    const std::vector<LabelSize> sizes(places.size(), {30, 4});
    const auto placed = [&](double scale) {
        std::string text;
        for (const MapLabel& label : placeLabels(places, sizes, 10, scale)) {
            text += std::to_string(label.airport) + (label.box.left > 0 ? "r " : label.box.right < 0 ? "l " : "- ");
        }
        return text;
    };
    EXPECT_EQ(placed(1000), "0r 1l 2- 3- 5r 6l ");
    EXPECT_EQ(placed(100000), "0r 1r 2r 3r 4r 5r 6r ");
}

TEST(RouteClipTest, KeepsWhatMayShow) {
    const FlatBox box{0, 0, 10, 10};
    const std::vector<FlatPoint> diamond{{5, -3}, {13, 5}, {5, 13}, {-3, 5}};
    const std::vector<FlatPoint> eight = clipped(diamond, box);
    EXPECT_EQ(eight.size(), 8U);
    EXPECT_TRUE(std::ranges::all_of(eight, [&](FlatPoint p) { return box.holds(p); }));
    EXPECT_TRUE(clipped(std::vector<FlatPoint>{{20, 0}, {30, 0}, {20, 9}}, box).empty());

    const std::vector<FlatPoint> line{{-20, 5}, {-10, 5}, {5, 5}, {20, 5}, {30, 5}, {30, -5}, {5, -5}, {5, 1}};
    std::vector<FlatPoint> room;
    std::string runs;
    forEachRun(line, box, room, [&](std::span<const FlatPoint> run, double along) {
        runs += std::to_string(run.size()) + "@" + std::to_string(std::lround(along)) + " ";
    });
    EXPECT_EQ(runs, "3@10 2@85 ");
}

} // namespace
} // namespace vantor::test
