#include "views/route_map.h"

#include "core/codes.h"
#include "core/schedule_walk.h"
#include "foundation/host.h"
#include "foundation/numbers.h"
#include "foundation/text.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

namespace vantor {

namespace {

constexpr Colour red = 255;
constexpr Colour green = 65280;

// Quirk: 180 is added to both, and the full height stands for 360 degrees: the world fills the middle half.
double mapX(float longitude, float xscale) {
    return static_cast<double>(xscale * (longitude + 180.0F));
}

double mapY(const Canvas& canvas, float latitude, float yscale) {
    return canvas.outerHeight() - static_cast<double>(yscale * (latitude + 180.0F));
}

// An airport at the far end of a leg, and the last leg that drew it so.
struct Route {
    std::int64_t drawn = 0;
    std::string_view code;
    Colour colour = 0;
};

// A busy airport is linked to the same few hundred others by a hundred thousand legs. Drawing is opaque, so that of
// equal drawings in one place only the last one shows: it is the one that is kept.
class Routes {
  public:
    void add(std::string_view code, Colour colour) { (colour == red ? m_red : m_green)[code] = ++m_count; }

    [[nodiscard]] std::vector<Route> inOrder() const {
        std::vector<Route> routes;
        routes.reserve(m_red.size() + m_green.size());
        for (const auto& [code, drawn] : m_red) {
            routes.push_back({drawn, code, red});
        }
        for (const auto& [code, drawn] : m_green) {
            routes.push_back({drawn, code, green});
        }
        std::ranges::sort(routes, {}, &Route::drawn);
        return routes;
    }

  private:
    using LastDrawn = std::unordered_map<std::string_view, std::int64_t>;

    LastDrawn m_red;
    LastDrawn m_green;
    std::int64_t m_count = 0;
};

// The views into the records hold: nothing changes the tables while the map is drawn.
Routes collectRoutes(const StandardTrap& trap, std::string_view code) {
    Routes routes;
    std::string_view from;
    walkLegs(trap, WalkDeleted::Visit, [&](const ScheduleRec&, const LegRec& leg, std::int32_t) {
        // Quirk: an arrival is drawn to the origin of the leg BEFORE, even that of the schedule before.
        if (leg.toicao.text() == code) {
            routes.add(from, red);
        }
        from = leg.fromicao.text();
        if (from == code) {
            routes.add(leg.toicao.text(), green);
        }
    });
    return routes;
}

} // namespace

void plotap(Canvas& canvas, float latitude, float longitude, std::string_view text, float xscale, float yscale) {
    canvas.drawText(mapX(longitude, xscale) - canvas.textWidth(text) / 2,
                    mapY(canvas, latitude, yscale) - canvas.textHeight(text) / 2, text);
}

void plotlabel(Canvas& canvas, float latitude, float longitude, std::string_view text, float xscale, float yscale) {
    const double width = canvas.textWidth(text);
    const double height = canvas.textHeight(text);
    canvas.drawText(mapX(longitude, xscale) - width / 2 - width / 2,
                    mapY(canvas, latitude, yscale) - height / 2 - height, text);
}

void plotline(Canvas& canvas, float latitude1, float longitude1, float latitude2, float longitude2, float xscale,
              float yscale, Colour colour) {
    canvas.drawLine(mapX(longitude1, xscale), mapY(canvas, latitude1, yscale), mapX(longitude2, xscale),
                    mapY(canvas, latitude2, yscale), colour);
}

void drawRouteMap(const StandardTrap& trap, Canvas& canvas, std::string_view icao) {
    canvas.clear();
    const std::string code = upper(icao);
    const auto xscale = static_cast<float>(canvas.outerWidth() / 360);
    const auto yscale = static_cast<float>(canvas.outerHeight() / 360);
    float latitude = 0;
    float longitude = 0;
    if (const AirportRec* const centre = knownAirport(code)) {
        latitude = centre->latdeg;
        longitude = centre->longdeg;
    }
    trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
    Routes routes;
    trap.set(routes, collectRoutes, trap, code);
    for (const Route& route : routes.inOrder()) {
        if (const AirportRec* const other = knownAirport(route.code)) {
            plotline(canvas, latitude, longitude, other->latdeg, other->longdeg, xscale, yscale, route.colour);
            plotap(canvas, other->latdeg, other->longdeg, "+", xscale, yscale);
            plotlabel(canvas, other->latdeg, other->longdeg, route.code, xscale, yscale);
        }
    }
    plotap(canvas, latitude, longitude, "o", xscale, yscale);
}

bool mayZoomIn(MapPoint size) noexcept {
    constexpr double most = 32000;
    return size.x * 1.25 < most && size.y * 1.25 < most;
}

MapLayout mapLayout(MapPoint window, MapPoint frameSize) noexcept {
    MapLayout layout;
    layout.frameSize = {window.x > 600 ? window.x - 300 : frameSize.x, window.y > 2000 ? window.y - 1200 : frameSize.y};
    layout.buttonsTop = window.y - 900;
    return layout;
}

void MapDrag::press(float x, float y) noexcept {
    m_startX = x;
    m_startY = y;
}

MapPoint MapDrag::move(float x, float y, bool held, MapPoint map, MapPoint mapSize, MapPoint frameSize) {
    const bool moved = x != m_lastX || y != m_lastY;
    m_lastX = x;
    m_lastY = y;
    if (!held || !moved) {
        return map;
    }
    MapPoint place{roundHalfEven(map.x) + toInt32(2.0 * static_cast<double>(x - m_startX)),
                   roundHalfEven(map.y) + toInt32(2.0 * static_cast<double>(y - m_startY))};
    // Quirk: the limits differ, 200 across and 300 down.
    if (place.x > 1) {
        place.x = 100;
    }
    if (mapSize.x + place.x < frameSize.x) {
        place.x = frameSize.x - mapSize.x - 200;
    }
    if (place.y > 1) {
        place.y = 100;
    }
    if (frameSize.y - mapSize.y > place.y) {
        place.y = frameSize.y - mapSize.y - 300;
    }
    return place;
}

} // namespace vantor
