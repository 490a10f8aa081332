#include "explorer/routes_scene.h"

#include "core/codes.h"
#include "core/great_circle.h"
#include "explorer/routes_clip.h"
#include "foundation/numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace vantor {

namespace {

// Meanings of the colours that tell a direction.
constexpr std::uint8_t bothWays = 0;
constexpr std::uint8_t eastbound = 1;
constexpr std::uint8_t westbound = 2;
// Types from here on share the last colour.
constexpr std::uint8_t otherTypes = routeColours - 1;

constexpr double pieceDegrees = 2;

// The share of the map that lines may cover, laid side by side, and how many there are in any case.
constexpr double mostInk = 0.5;
constexpr std::size_t leastRoutes = 500;

double squareToPiece(FlatPoint p, FlatPoint a, FlatPoint b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length = dx * dx + dy * dy;
    const double along = length == 0 ? 0 : std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length, 0.0, 1.0);
    const double x = a.x + along * dx - p.x;
    const double y = a.y + along * dy - p.y;
    return x * x + y * y;
}

std::uint8_t widthFor(double flights) {
    std::uint8_t width = 0;
    while (width + 1U < routeWidths.size() && flights >= routeWidths.at(width + 1U).flights) {
        ++width;
    }
    return width;
}

std::string widthText(std::size_t width) {
    return width == 0 ? "below " + generalNumber(routeWidths[1].flights) + " flights a week"
                      : generalNumber(routeWidths.at(width).flights) + " and more";
}

// 1234567 as 1,234,567.
std::string grouped(std::string digits) {
    const std::size_t point = std::min(digits.find('.'), digits.size());
    for (std::size_t at = point; at > 3; at -= 3) {
        digits.insert(at - 3, ",");
    }
    return digits;
}

std::string withNoun(double count, std::string_view one, std::string_view many) {
    return flightsText(count) + " " + std::string(count == 1 ? one : many);
}

} // namespace

std::string flightsText(double flights) {
    const double tenths = std::round(flights * 10);
    return grouped(fixedNumber(tenths / 10, std::fmod(tenths, 10) == 0 ? 0 : 1));
}

RoutesScene::RoutesScene(RouteNetwork network, RouteColouring colouring)
    : m_network(std::move(network)), m_colouring(colouring) {
    m_places.reserve(m_network.airports.size());
    for (const RouteAirport& airport : m_network.airports) {
        m_places.push_back(project(airport.place));
    }
}

bool RoutesScene::build(const std::function<bool()>& enough) {
    constexpr std::size_t linesBetween = 64;
    while (m_boxes.size() < m_network.routes.size()) {
        if (m_boxes.size() % linesBetween == linesBetween - 1 && enough()) {
            return false;
        }
        addLine(m_network.routes[m_boxes.size()]);
    }
    colourBy(m_colouring);
    return true;
}

void RoutesScene::addLine(const Route& route) {
    FlatBox box{2, 2, -2, -2};
    const std::vector<FlatPoint> line =
        greatCircle(m_network.airports[route.first].place, m_network.airports[route.second].place, pieceDegrees);
    double length = 0;
    for (const FlatPoint& at : line) {
        length += lengthOf(at, &at == &line.front() ? at : *(&at - 1));
        m_points.push_back({static_cast<float>(at.x), static_cast<float>(at.y)});
        box.add(at);
    }
    const double ink = length * routeWidths.at(widthFor(route.flights())).pixels;
    m_ink.push_back((m_ink.empty() ? 0.0F : m_ink.back()) + static_cast<float>(ink));
    m_starts.push_back(static_cast<std::uint32_t>(m_points.size()));
    m_boxes.push_back(box);
}

void RoutesScene::colourBy(RouteColouring colouring) {
    m_colouring = colouring;
    m_looks.clear();
    m_looks.reserve(m_network.routes.size());
    for (std::size_t route = 0; route < m_network.routes.size(); ++route) {
        m_looks.push_back(looksOf(route));
    }
}

bool RoutesScene::eastward(std::size_t route) const noexcept {
    return m_points[m_starts[route + 1] - 1].x > m_points[m_starts[route]].x;
}

RouteLooks RoutesScene::looksOf(std::size_t index) const {
    const Route& route = m_network.routes[index];
    RouteLooks looks;
    looks.width = widthFor(route.flights());
    looks.arrow = static_cast<std::int8_t>((route.back == 0) - (route.out == 0));
    if (m_colouring == RouteColouring::AircraftType) {
        looks.colour = static_cast<std::uint8_t>(std::min<std::uint32_t>(route.uses.front().type, otherTypes));
    } else if (looks.arrow != 0) {
        looks.colour = (looks.arrow > 0) == eastward(index) ? eastbound : westbound;
    }
    return looks;
}

std::vector<FlatPoint> RoutesScene::knownPlaces() const {
    std::vector<FlatPoint> known;
    for (std::size_t i = 0; i < m_places.size(); ++i) {
        if (m_network.airports[i].known) {
            known.push_back(m_places[i]);
        }
    }
    return known;
}

void RoutesScene::line(std::size_t route, double scale, std::vector<FlatPoint>& points) const {
    // How far a straight piece of one step strays from the arc, in widths of the world, at the middle latitudes where
    // most routes bend; it grows with the square of the step.
    constexpr double strayOfOne = 5e-5;
    constexpr double mostStray = 0.4; // pixels
    const auto step = static_cast<std::uint32_t>(std::clamp(std::sqrt(mostStray / (strayOfOne * scale)), 1.0, 8.0));
    points.clear();
    const std::uint32_t last = m_starts[route + 1] - 1;
    for (std::uint32_t at = m_starts[route]; at < last; at += step) {
        points.push_back(point(at));
    }
    points.push_back(point(last));
}

std::vector<LegendRow> RoutesScene::legend() const {
    std::array<bool, routeColours> colours{};
    std::array<bool, routeWidths.size()> widths{};
    for (const RouteLooks& looks : m_looks) {
        colours.at(looks.colour) = true;
        widths.at(looks.width) = true;
    }
    std::vector<LegendRow> rows;
    const auto addColour = [&](std::uint8_t colour, std::string text, std::int8_t arrow) {
        if (colours.at(colour)) {
            rows.push_back({std::move(text), {colour, 2, arrow}});
        }
    };
    if (m_colouring == RouteColouring::Direction) {
        addColour(bothWays, "Both ways", 0);
        addColour(eastbound, "One way, eastbound", 1);
        addColour(westbound, "One way, westbound", -1);
    } else {
        for (std::uint8_t type = 0; type < otherTypes && type < m_network.types.size(); ++type) {
            addColour(type, m_network.types[type].title, 0);
        }
        addColour(otherTypes, "Other aircraft", 0);
    }
    for (std::size_t width = 0; width < widths.size(); ++width) {
        if (widths.at(width)) {
            rows.push_back({widthText(width), {routeColours, static_cast<std::uint8_t>(width), 0}});
        }
    }
    return rows;
}

std::optional<std::size_t> RoutesScene::airportAt(FlatPoint place, double reach) const {
    std::optional<std::size_t> nearest;
    double least = reach * reach;
    for (std::size_t i = 0; i < m_places.size(); ++i) {
        const double x = m_places[i].x - place.x;
        const double dx = x - std::round(x);
        const double dy = m_places[i].y - place.y;
        if (const double square = dx * dx + dy * dy; square < least && m_network.airports[i].known) {
            least = square;
            nearest = i;
        }
    }
    return nearest;
}

double RoutesScene::squareDistance(std::size_t route, FlatPoint place) const {
    double least = std::numeric_limits<double>::max();
    for (std::uint32_t at = m_starts[route]; at + 1 < m_starts[route + 1]; ++at) {
        least = std::min(least, squareToPiece(place, point(at), point(at + 1)));
    }
    return least;
}

std::size_t RoutesScene::routesAt(double scale) const {
    // The world is `scale` pixels wide, so that a line's pixels grow with it, and the room with its square.
    const auto room = static_cast<float>(mostInk * 2 * halfWorldHeight * scale);
    const auto fit = static_cast<std::size_t>(std::ranges::upper_bound(m_ink, room) - m_ink.begin());
    return std::min(std::max(fit, leastRoutes), m_ink.size());
}

std::optional<std::size_t> RoutesScene::routeAt(FlatPoint place, double reach, std::size_t routes) const {
    std::optional<std::size_t> nearest;
    double least = reach * reach;
    const double x = place.x - std::floor(place.x);
    // A line begins in the world from 0 to 1 and may run on into a neighbour.
    for (const double copy : {x - 1, x, x + 1}) {
        const FlatPoint at{copy, place.y};
        for (std::size_t route = 0; route < std::min(routes, m_boxes.size()); ++route) {
            if (!m_boxes[route].grown(reach).holds(at)) {
                continue;
            }
            if (const double square = squareDistance(route, at); square < least) {
                least = square;
                nearest = route;
            }
        }
    }
    return nearest;
}

std::string RoutesScene::airportText(std::size_t index) const {
    const RouteAirport& airport = m_network.airports[index];
    const std::string code(airport.code.text());
    const std::string title = airporttitle(code);
    return (title.empty() || title == code ? code : code + " - " + title) + "\n" +
           withNoun(airport.departures, "departure", "departures") + " and " +
           withNoun(airport.arrivals, "arrival", "arrivals") + " a week\n" +
           withNoun(airport.routes, "route", "routes");
}

std::string RoutesScene::routeText(std::size_t index) const {
    const Route& route = m_network.routes[index];
    const std::string first(m_network.airports[route.first].code.text());
    const std::string second(m_network.airports[route.second].code.text());
    const auto miles = grouped(fixedNumber(flightdistance(first, second), 0));
    std::string text = first + " - " + second + ", " + miles + " NM";
    const auto direction = [&](const std::string& from, const std::string& to, double flights) {
        if (flights > 0) {
            text += "\n" + from + " to " + to + ": " + withNoun(flights, "flight", "flights") + " a week";
        }
    };
    direction(first, second, route.out);
    direction(second, first, route.back);
    constexpr std::size_t mostTypes = 4;
    for (std::size_t i = 0; i < std::min(mostTypes, route.uses.size()); ++i) {
        text += "\n" + m_network.types[route.uses[i].type].title + ": " + flightsText(route.uses[i].flights);
    }
    if (route.uses.size() > mostTypes) {
        text += "\nand " + std::to_string(route.uses.size() - mostTypes) + " more";
    }
    return text;
}

std::string RoutesScene::summary(double scale) const {
    const auto known = static_cast<double>(std::ranges::count_if(m_network.airports, &RouteAirport::known));
    std::string text = withNoun(static_cast<double>(m_network.routeCount), "route", "routes") + ", " +
                       withNoun(known, "airport", "airports") + ", " +
                       withNoun(m_network.flights, "flight", "flights") + " a week";
    if (const std::size_t drawn = routesAt(scale); drawn < m_network.routeCount) {
        text += "; the busiest " + flightsText(static_cast<double>(drawn)) + " are drawn";
        text += drawn < m_network.routes.size() ? ", more as you zoom in" : "";
    }
    if (m_network.unplaced > 0) {
        text += "; " + withNoun(m_network.unplaced, "flight", "flights") + " to airports without a place";
    }
    return text;
}

} // namespace vantor
