#include "explorer/routes_drawing.h"

#include "explorer/routes_clip.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace vantor {

namespace {

constexpr double shoreWidth = 0.8;
constexpr double reachOfLooks = 8; // pixels that a line's width, arrow or dot may stand out from its place

// A pattern for each colour that tells a type. The first, that of most lines, is unbroken.
std::span<const double> dashesOf(std::uint8_t colour) {
    static constexpr std::array<double, 2> dashed{8, 4};
    static constexpr std::array<double, 2> dotted{2, 3};
    static constexpr std::array<double, 4> dashDot{9, 3, 2, 3};
    static constexpr std::array<double, 2> longDashed{16, 5};
    static constexpr std::array<double, 6> dashDotDot{9, 3, 2, 3, 2, 3};
    static constexpr std::array<double, 2> shortDashed{4, 3};
    static constexpr std::array<double, 4> longShort{14, 3, 5, 3};
    switch (colour) {
    case 1:
        return dashed;
    case 2:
        return dotted;
    case 3:
        return dashDot;
    case 4:
        return longDashed;
    case 5:
        return dashDotDot;
    case 6:
        return shortDashed;
    case 7:
        return longShort;
    default:
        return {};
    }
}

MapPen penOf(const MapContent& content, RouteLooks looks) {
    const bool types = content.scene.colouring() == RouteColouring::AircraftType;
    return {content.colours.routes.at(looks.colour), routeWidths.at(looks.width).pixels, 1,
            types ? dashesOf(looks.colour) : std::span<const double>{}, 0};
}

// Where thousands of lines cross, each must let the others show.
double opacityFor(std::size_t routes) {
    return routes < 400 ? 0.85 : routes < 3000 ? 0.6 : 0.4;
}

double dotRadius(double movements) {
    return movements < 7 ? 1.5 : movements < 70 ? 2.2 : movements < 350 ? 3 : 4;
}

// Dots shrink where they would cover more than a twentieth of the world.
double dotSize(const RoutesScene& scene, double scale) {
    constexpr double least = 0.4;
    double area = 0;
    for (const RouteAirport& airport : scene.network().airports) {
        const double radius = dotRadius(airport.movements());
        area += std::numbers::pi * radius * radius;
    }
    const double room = scale * scale * 2 * halfWorldHeight / 20;
    return area <= room ? 1 : std::max(least, std::sqrt(room / area));
}

// The n of all copies of the world in which what lies from `left` to `right` shows in a box: calls visit(n).
template <class Visit>
void forEachCopy(double left, double right, const FlatBox& box, const Visit& visit) {
    for (double n = std::ceil(box.left - right); n <= std::floor(box.right - left); ++n) {
        visit(n);
    }
}

void drawArrow(MapSurface& surface, FlatPoint at, FlatPoint towards, double width, MapColour colour) {
    const double length = lengthOf(at, towards);
    if (length == 0) {
        return;
    }
    const double size = 4 + width;
    const double x = (towards.x - at.x) / length * size;
    const double y = (towards.y - at.y) / length * size;
    const std::array<FlatPoint, 3> head{{{at.x + x, at.y + y},
                                         {at.x - x * 0.7 - y * 0.7, at.y - y * 0.7 + x * 0.7},
                                         {at.x - x * 0.7 + y * 0.7, at.y - y * 0.7 - x * 0.7}}};
    surface.fillArea(head, colour);
}

FlatBox windowOf(const MapView& view) {
    return {0, 0, view.width, view.height};
}

void toWindow(const MapView& view, double copy, std::vector<FlatPoint>& points) {
    for (FlatPoint& point : points) {
        point = view.toWindow({point.x + copy, point.y});
    }
}

// The middle of a line by its points, and where it goes from there.
std::pair<FlatPoint, FlatPoint> middleOf(std::span<const FlatPoint> line) {
    const std::size_t i = (line.size() - 1) / 2;
    const FlatPoint a = line[i];
    const FlatPoint b = line[i + 1];
    return line.size() % 2 == 0 ? std::pair{FlatPoint{(a.x + b.x) / 2, (a.y + b.y) / 2}, b} : std::pair{a, b};
}

} // namespace

std::vector<MapLabel> labelsOf(const RoutesScene& scene, const MapSurface& surface, double scale) {
    std::vector<LabelSize> sizes;
    sizes.reserve(scene.places().size());
    const double dots = dotSize(scene, scale);
    for (const RouteAirport& airport : scene.network().airports) {
        sizes.push_back(
            {airport.known ? surface.textWidth(airport.code.text()) : 0, dots * dotRadius(airport.movements())});
    }
    return placeLabels(scene.places(), sizes, surface.textHeight(), scale);
}

MapDrawing::MapDrawing(const MapContent& content, const MapView& part)
    : m_content(content), m_part(part), m_box(part.box()), m_routes(content.scene.routesAt(part.scale)),
      m_dots(dotSize(content.scene, part.scale)) {}

bool MapDrawing::goOn(MapSurface& surface, const std::function<bool()>& enough) {
    constexpr std::size_t itemsBetween = 32; // a few tenths of a millisecond
    std::size_t drawn = 0;
    while (m_layer != Layer::Done) {
        for (; m_next < layerSize(); ++m_next) {
            if (++drawn % itemsBetween == 0 && enough()) {
                return false;
            }
            drawItem(surface, m_next);
        }
        m_next = 0;
        m_layer = static_cast<Layer>(static_cast<int>(m_layer) + 1);
    }
    return true;
}

void MapDrawing::finish(MapSurface& surface) {
    static_cast<void>(goOn(surface, [] { return false; }));
}

std::size_t MapDrawing::layerSize() const noexcept {
    switch (m_layer) {
    case Layer::Routes:
        return m_routes;
    case Layer::Airports:
        return m_content.scene.places().size();
    case Layer::Labels:
        return m_content.labels.size();
    default:
        return 1;
    }
}

// The least important first, so that what matters lies on top.
void MapDrawing::drawItem(MapSurface& surface, std::size_t item) {
    switch (m_layer) {
    case Layer::Sea:
        drawSea(surface);
        break;
    case Layer::Land:
        drawLand(surface, false);
        break;
    case Layer::Shores:
        drawLand(surface, true);
        break;
    case Layer::Grid:
        drawGrid(surface);
        break;
    case Layer::Routes:
        drawRoute(surface, layerSize() - 1 - item);
        break;
    case Layer::Airports:
        drawAirport(surface, layerSize() - 1 - item);
        break;
    case Layer::Labels:
        drawLabel(surface, m_content.labels[item]);
        break;
    case Layer::Done:
        break;
    }
}

void MapDrawing::drawSea(MapSurface& surface) const {
    const FlatBox window = windowOf(m_part);
    surface.fillBox(window, m_content.colours.outside, 1);
    const double top = std::max(window.top, m_part.toWindow({0, -halfWorldHeight}).y);
    const double bottom = std::min(window.bottom, m_part.toWindow({0, halfWorldHeight}).y);
    if (top < bottom) {
        surface.fillBox({window.left, top, window.right, bottom}, m_content.colours.sea, 1);
    }
}

void MapDrawing::drawLand(MapSurface& surface, bool shores) {
    const FlatBox box = m_box.grown(reachOfLooks / m_part.scale);
    for (const CoastRing& ring : coastLines(m_part.scale)) {
        if (ring.box.top > box.bottom || ring.box.bottom < box.top) {
            continue;
        }
        forEachCopy(ring.box.left, ring.box.right, box, [&](double copy) {
            const FlatBox here{box.left - copy, box.top, box.right - copy, box.bottom};
            if (!shores) {
                std::vector<FlatPoint> outline = clipped(ring.points, here);
                toWindow(m_part, copy, outline);
                surface.fillArea(outline, ring.lake ? m_content.colours.sea : m_content.colours.land);
                return;
            }
            drawShore(surface, ring, here, copy);
        });
    }
}

void MapDrawing::drawShore(MapSurface& surface, const CoastRing& ring, const FlatBox& box, double copy) {
    const auto draw = [&](std::span<const FlatPoint> line) {
        forEachRun(line, box, m_run, [&](std::vector<FlatPoint>& run, double) {
            toWindow(m_part, copy, run);
            surface.drawLine(run, {.colour = m_content.colours.shore, .width = shoreWidth});
        });
    };
    m_line.clear();
    for (std::size_t i = 0; i <= ring.points.size(); ++i) {
        const FlatPoint point = ring.points[i % ring.points.size()];
        if (!m_line.empty() && !isShore(m_line.back(), point)) {
            draw(m_line);
            m_line.clear();
        }
        m_line.push_back(point);
    }
    draw(m_line);
}

void MapDrawing::drawGrid(MapSurface& surface) const {
    const double degrees = m_part.scale < 3000 ? 30 : m_part.scale < 12000 ? 10 : 5;
    const MapPen pen{.colour = m_content.colours.grid, .width = 0.7};
    const FlatBox window = windowOf(m_part);
    const double step = degrees / 360;
    for (double x = std::ceil(m_box.left / step); x * step <= m_box.right; ++x) {
        const double at = m_part.toWindow({x * step, 0}).x;
        const double pole = m_part.toWindow({0, halfWorldHeight}).y;
        const double otherPole = m_part.toWindow({0, -halfWorldHeight}).y;
        surface.drawLine(
            std::array{FlatPoint{at, std::max(window.top, otherPole)}, FlatPoint{at, std::min(window.bottom, pole)}},
            pen);
    }
    for (double latitude = -90 + degrees; latitude < 90; latitude += degrees) {
        const double at = m_part.toWindow(project({latitude, 0})).y;
        if (window.top <= at && at <= window.bottom) {
            surface.drawLine(std::array{FlatPoint{window.left, at}, FlatPoint{window.right, at}}, pen);
        }
    }
}

void MapDrawing::drawRoute(MapSurface& surface, std::size_t route) {
    const FlatBox& bounds = m_content.scene.box(route);
    const FlatBox box = m_box.grown(reachOfLooks / m_part.scale);
    if (bounds.top > box.bottom || bounds.bottom < box.top) {
        return;
    }
    const RouteLooks looks = m_content.scene.looks(route);
    MapPen pen = penOf(m_content, looks);
    pen.opacity = opacityFor(m_routes);
    forEachCopy(bounds.left, bounds.right, box, [&](double copy) {
        m_content.scene.line(route, m_part.scale, m_line);
        toWindow(m_part, copy, m_line);
        forEachRun(m_line, windowOf(m_part).grown(reachOfLooks), m_run, [&](std::span<const FlatPoint> run, double at) {
            pen.along = at;
            surface.drawLine(run, pen);
        });
        // Among thousands, arrows on the busiest ones are all that can be seen.
        constexpr std::size_t mostArrows = 2000;
        constexpr double shortest = 40; // pixels
        const double length = std::max(bounds.right - bounds.left, bounds.bottom - bounds.top) * m_part.scale;
        if (looks.arrow != 0 && route < mostArrows && length > shortest) {
            auto [middle, towards] = middleOf(m_line);
            if (windowOf(m_part).grown(reachOfLooks).holds(middle)) {
                if (looks.arrow < 0) {
                    towards = {2 * middle.x - towards.x, 2 * middle.y - towards.y};
                }
                drawArrow(surface, middle, towards, pen.width, pen.colour);
            }
        }
    });
}

void MapDrawing::drawAirport(MapSurface& surface, std::size_t index) const {
    const RouteAirport& airport = m_content.scene.network().airports[index];
    if (!airport.known) {
        return;
    }
    const FlatPoint place = m_content.scene.places()[index];
    const FlatBox box = m_box.grown(reachOfLooks / m_part.scale);
    if (place.y < box.top || place.y > box.bottom) {
        return;
    }
    forEachCopy(place.x, place.x, box, [&](double copy) {
        surface.drawDot(m_part.toWindow({place.x + copy, place.y}), m_dots * dotRadius(airport.movements()),
                        m_content.colours.dot, m_content.colours.halo);
    });
}

void MapDrawing::drawLabel(MapSurface& surface, const MapLabel& label) const {
    const FlatPoint place = m_content.scene.places()[label.airport];
    const double pixel = 1 / m_part.scale;
    const FlatBox bounds{place.x + label.box.left * pixel, place.y + label.box.top * pixel,
                         place.x + label.box.right * pixel, place.y + label.box.bottom * pixel};
    const FlatBox box = m_box.grown(2 * pixel); // the halo
    if (bounds.top > box.bottom || bounds.bottom < box.top) {
        return;
    }
    forEachCopy(bounds.left, bounds.right, box, [&](double copy) {
        const FlatPoint at = m_part.toWindow({place.x + copy, place.y});
        surface.drawText({at.x + label.box.left, at.y + label.box.top, at.x + label.box.right, at.y + label.box.bottom},
                         m_content.scene.network().airports[label.airport].code.text(), m_content.colours.text,
                         m_content.colours.halo);
    });
}

void drawHighlight(MapSurface& surface, const MapContent& content, const MapView& view, std::size_t route) {
    constexpr double wider = 3;
    const FlatBox& bounds = content.scene.box(route);
    MapPen pen = penOf(content, content.scene.looks(route));
    const MapPen rim{.colour = content.colours.highlight, .width = pen.width + wider};
    ++pen.width;
    forEachCopy(bounds.left, bounds.right, view.box(), [&](double copy) {
        std::vector<FlatPoint> line;
        content.scene.line(route, view.scale, line);
        toWindow(view, copy, line);
        surface.drawLine(line, rim);
        surface.drawLine(line, pen);
    });
}

void drawRing(MapSurface& surface, const MapContent& content, const MapView& view, std::size_t airport) {
    const FlatPoint place = content.scene.places()[airport];
    const double radius =
        dotSize(content.scene, view.scale) * dotRadius(content.scene.network().airports[airport].movements());
    forEachCopy(place.x, place.x, view.box(), [&](double copy) {
        const FlatPoint at = view.toWindow({place.x + copy, place.y});
        surface.drawDot(at, radius + 5, content.colours.highlight, content.colours.halo);
        surface.drawDot(at, radius + 3, content.colours.halo, content.colours.halo);
        surface.drawDot(at, radius, content.colours.dot, content.colours.halo);
    });
}

void drawLegend(MapSurface& surface, const MapContent& content, const MapView& view) {
    constexpr double margin = 8;
    constexpr double sample = 34;
    const std::vector<LegendRow> rows = content.scene.legend();
    const double row = surface.textHeight() + 2;
    double width = 0;
    for (const LegendRow& legend : rows) {
        width = std::max(width, surface.textWidth(legend.text));
    }
    width += sample + 3 * margin;
    const double height = row * static_cast<double>(rows.size()) + 2 * margin;
    if (rows.empty() || width + 2 * margin > view.width * 0.6 || height + 2 * margin > view.height * 0.8) {
        return;
    }
    const double left = margin;
    double top = view.height - margin - height;
    surface.fillBox({left, top, left + width, top + height}, content.colours.halo, 0.88);
    top += margin;
    for (const LegendRow& legend : rows) {
        const double middle = top + row / 2;
        const FlatPoint from{left + margin, middle};
        const FlatPoint to{left + margin + sample, middle};
        const MapPen pen = penOf(content, legend.looks);
        surface.drawLine(std::array{from, to}, pen);
        if (legend.looks.arrow != 0) {
            const FlatPoint centre{(from.x + to.x) / 2, middle};
            drawArrow(surface, centre, legend.looks.arrow > 0 ? to : from, pen.width, pen.colour);
        }
        surface.drawText({to.x + margin, top, left + width - margin, top + row}, legend.text, content.colours.text,
                         content.colours.halo);
        top += row;
    }
}

} // namespace vantor
