// Explorer: the flat map against known points, great circles, the window on the map, and the coast lines.
#include "explorer/coast_lines.h"
#include "explorer/projection.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace vantor::test {
namespace {

void expectNear(GeoPoint place, GeoPoint expected, double degrees) {
    EXPECT_NEAR(place.latitude, expected.latitude, degrees);
    EXPECT_NEAR(place.longitude, expected.longitude, degrees);
}

TEST(ProjectionTest, AgreesWithPublishedPoints) {
    // The numerical example of Snyder's manual, for a globe of radius 1 and the meridian of Greenwich.
    const FlatPoint point = project({50, -75});
    EXPECT_NEAR((point.x - 0.5) * 2 * std::numbers::pi, -1.3089969, 1e-7);
    EXPECT_NEAR(-point.y * 2 * std::numbers::pi, 0.9536371, 1e-7);
    EXPECT_NEAR(project({-90, 0}).y, halfWorldHeight, 1e-8);
    EXPECT_EQ(project({-95, 0}).y, project({-90, 0}).y);
    for (const GeoPoint place : {GeoPoint{50, -75}, GeoPoint{-89, 179}, GeoPoint{0, 0}}) {
        expectNear(unproject(project(place)), place, 1e-9);
    }
}

TEST(ProjectionTest, GreatCirclesFollowTheEarth) {
    // Los Angeles to New York, two fifths of the way, as worked out in the Aviation Formulary.
    const auto across = greatCircle({33 + 57 / 60.0, -118 - 24 / 60.0}, {40 + 38 / 60.0, -73 - 47 / 60.0}, 7.2);
    ASSERT_EQ(across.size(), 6U);
    expectNear(unproject(across[2]), {38 + 40.167 / 60, -101 - 37.570 / 60}, 1e-5);

    // Tokyo to Los Angeles runs on beyond the eastern end of the world, and back over its western end.
    const auto east = greatCircle({35.76, 140.39}, {33.94, -118.41}, 5);
    EXPECT_NEAR(east.back().x, 1 + (180 - 118.41) / 360, 1e-9);
    const auto west = greatCircle({33.94, -118.41}, {35.76, 140.39}, 5);
    EXPECT_NEAR(west.back().x, (140.39 - 180) / 360, 1e-9);
    for (std::size_t i = 1; i < east.size(); ++i) {
        EXPECT_LT(std::abs(east[i].x - east[i - 1].x), 0.03);
    }

    EXPECT_NEAR(greatCircle({80, 10}, {80, -170}, 2.6)[4].y, -halfWorldHeight, 1e-8); // over the pole
    const auto opposite = greatCircle({-20, 30}, {20, -150}, 10);
    EXPECT_NEAR(unproject(opposite[11]).latitude, 90, 1e-6);
    expectNear(unproject(opposite.back()), {20, -150}, 1e-9);
    EXPECT_EQ(greatCircle({10, 20}, {10, 20}, 1).size(), 2U);
}

TEST(MapViewTest, ZoomsAtThePointerAndStaysOnTheWorld) {
    const MapView view{{0.5, 0}, 4000, 800, 600};
    const FlatPoint pointer{100, 500};
    const FlatPoint held = view.toFlat(pointer);
    const MapView zoomed = view.zoomed(2, pointer);
    EXPECT_EQ(zoomed.scale, 8000);
    EXPECT_NEAR(zoomed.toWindow(held).x, 100, 1e-6);
    EXPECT_NEAR(zoomed.toWindow(held).y, 500, 1e-6);
    const FlatPoint dragged = view.dragged({400, 300}, {390, 320}).toWindow({0.5, 0});
    EXPECT_NEAR(dragged.x, 390, 1e-6);
    EXPECT_NEAR(dragged.y, 320, 1e-6);

    EXPECT_NEAR(view.dragged({0, 0}, {3000, 0}).centre.x, -0.25, 1e-9); // into the next world
    EXPECT_NEAR(view.dragged({0, 0}, {0, -9000}).box().bottom, halfWorldHeight, 1e-9);
    const MapView least = view.zoomed(1e-9, pointer);
    EXPECT_EQ(least.scale, 800);
    EXPECT_EQ(least.centre.y, 0);
    EXPECT_EQ(least.resized(2000, 400).zoomed(1e-9, {}).scale, 400 / (2 * halfWorldHeight));
    EXPECT_LT(view.zoomed(1e9, pointer).scale, 200000);
}

TEST(MapViewTest, FitsPointsAlsoAcrossTheDateLine) {
    const std::vector<FlatPoint> pacific{project({-17, 178}), project({-14, -172}), project({-37, 175})};
    const MapView view = MapView{}.fitted(pacific);
    for (const FlatPoint& point : pacific) {
        const double x = view.centre.x < 0.5 && point.x > 0.5 ? point.x - 1 : point.x;
        EXPECT_TRUE(view.box().holds({view.centre.x > 0.5 && x < 0.5 ? x + 1 : x, point.y}));
    }
    EXPECT_GT(view.scale, 6000);
    EXPECT_EQ(MapView{}.fitted({}).scale, 800);
    EXPECT_EQ(MapView{}.fitted(std::vector<FlatPoint>{{0.05, 0}, {0.3, 0}, {0.55, 0}, {0.8, 0}}).centre.x, 0.5);
    EXPECT_LT(MapView{}.fitted(std::vector{FlatPoint{0.3, 0.1}}).scale, 20000);
}

// Whether a place is land, by the rings around it.
bool isLand(const CoastLines& lines, GeoPoint place) {
    bool inside = false;
    for (const CoastRing& ring : lines) {
        for (const double copy : {-1, 0, 1}) {
            const FlatPoint p{project(place).x + copy, project(place).y};
            for (std::size_t i = 0; i < ring.points.size(); ++i) {
                const FlatPoint a = ring.points[i];
                const FlatPoint b = ring.points[(i + 1) % ring.points.size()];
                if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x)) {
                    inside = !inside;
                }
            }
        }
    }
    return inside;
}

TEST(CoastLinesTest, TellLandFromSea) {
    const std::vector<std::pair<const char*, GeoPoint>> land{{"London", {51.5, -0.5}},
                                                             {"Chukotka beyond the date line", {66.5, -172.5}},
                                                             {"South Pole", {-89, 40}},
                                                             {"Perth", {-31.9, 116.5}},
                                                             {"Viti Levu", {-17.8, 178}}};
    const std::vector<std::pair<const char*, GeoPoint>> sea{{"Atlantic", {40, -40}},
                                                            {"Caspian Sea", {42, 50.5}},
                                                            {"North Pole", {89, 0}},
                                                            {"off the date line", {0, 179.9}}};
    for (const double scale : {800.0, 8000.0}) {
        for (const auto& [name, place] : land) {
            EXPECT_TRUE(isLand(coastLines(scale), place)) << name << " at " << scale;
        }
        for (const auto& [name, place] : sea) {
            EXPECT_FALSE(isLand(coastLines(scale), place)) << name << " at " << scale;
        }
    }
    EXPECT_GT(coastLines(8000).size(), coastLines(800).size() * 5);
    EXPECT_FALSE(isShore({1, 0.1}, {1, 0.2}));
    EXPECT_TRUE(isShore({0.9, 0.1}, {0.9, 0.2}));
}

} // namespace
} // namespace vantor::test
