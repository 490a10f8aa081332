#include "routes.h"

#include "core/tables.h"
#include "explorer/frmRoutes.h"
#include "explorer/frmRoutesMap.h"
#include "table.h"
#include "world.h"

#include <QMouseEvent>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <vector>

namespace vantor::bench {

namespace {

constexpr double frameLimit = 16; // milliseconds: a display of 60 pictures a second
constexpr double zoomLimit = 1000;
// Nearly every leg of this many schedules is a route of its own.
constexpr int schedulesOfMap = 6600;
constexpr int framesOfDrag = 120;

void move(RoutesMap& map, QEvent::Type type, QPointF place) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, map.mapToGlobal(place), button, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&map, &event);
}

// The frame that all but two of a hundred are faster than, in milliseconds.
Spent slowFrame(std::vector<Spent> frames) {
    constexpr double slower = 0.02;
    constexpr double milliseconds = 1000;
    const auto at = static_cast<std::ptrdiff_t>(static_cast<double>(frames.size()) * (1 - slower));
    std::ranges::nth_element(frames, frames.begin() + at, {}, &Spent::wall);
    Spent slow{frames[static_cast<std::size_t>(at)].wall * milliseconds, 0};
    std::ranges::nth_element(frames, frames.begin() + at, {}, &Spent::processor);
    slow.processor = frames[static_cast<std::size_t>(at)].processor * milliseconds;
    return slow;
}

// A hand that goes to and fro, faster than the margin around the window is painted.
Finding dragOnce(RoutesMap& map) {
    map.showAll();
    map.zoom(2);
    while (!map.isComplete()) {
        QCoreApplication::processEvents();
    }
    std::vector<Spent> frames;
    QPointF place(map.width() / 2.0, map.height() / 2.0);
    move(map, QEvent::MouseButtonPress, place);
    for (int i = 0; i < framesOfDrag; ++i) {
        place += QPointF(i < framesOfDrag / 2 ? 24 : -30, i % 40 < 20 ? 6 : -7);
        frames.push_back(timeOf({[&] {
                                     move(map, QEvent::MouseMove, place);
                                     map.repaint();
                                 },
                                 {}}));
    }
    move(map, QEvent::MouseButtonRelease, place);
    const Spent slow = slowFrame(std::move(frames));
    return {slow.wall / 1000, slow};
}

Finding zoomOnce(RoutesMap& map) {
    map.showAll();
    while (!map.isComplete()) {
        QCoreApplication::processEvents();
    }
    const Spent spent = timeOf({[&] {
                                    map.zoom(2);
                                    while (!map.isComplete()) {
                                        QCoreApplication::processEvents();
                                    }
                                },
                                {}});
    return {spent.wall, {spent.wall * 1000, spent.processor * 1000}};
}

} // namespace

void measureRoutes(Window& window) {
    const QTemporaryDir temporary;
    const std::filesystem::path folder = temporary.path().toStdString();
    writeWorld(folder, {.schedules = schedulesOfMap});
    window.moveTo(folder);
    window.form().files().loaddata();
    std::vector<LegId> legs;
    for (std::int32_t recnum = 1; recnum <= schedulecount; ++recnum) {
        for (std::int32_t leg = 1; leg <= schedules.peek(recnum).legcount; ++leg) {
            legs.push_back({recnum, leg});
        }
    }
    frmRoutes page;
    page.resize(1280, 900);
    page.setLegs(
        legs.size(), [&](std::size_t i) { return legs[i]; }, false);
    page.show();
    while (!page.isCounted()) {
        QCoreApplication::processEvents();
    }
    auto* const map = page.findChild<RoutesMap*>();
    const RouteNetwork& network = map->scene().network();
    std::printf("\n%zu airports and %zu routes on a map of %d x %d\n\n", network.airports.size(), network.routes.size(),
                map->width(), map->height());
    addRow({.name = "a slow frame (of 50) while the map is dragged", .unit = "ms", .limit = frameLimit},
           [&] { return dragOnce(*map); });
    addRow({.name = "the whole map after a zoom", .unit = "ms", .limit = zoomLimit}, [&] { return zoomOnce(*map); });
    measureRows();
}

} // namespace vantor::bench
