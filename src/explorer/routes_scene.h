// Explorer: all flights in one table, on a world map, and checked.
// The network as it lies on the flat map: lines with their looks, and what stands under the pointer.
#pragma once

#include "explorer/projection.h"
#include "explorer/routes.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vantor {

/// What the colour of a route tells.
enum class RouteColouring { Direction, AircraftType };

/// Looks of a route: one of the colours, which comes with a dash pattern of its own where it tells the type, and a
/// width that tells the flights in a week.
struct RouteLooks {
    std::uint8_t colour = 0; ///< 0 to routeColours - 1
    std::uint8_t width = 0;  ///< 0 to routeWidths.size() - 1
    std::int8_t arrow = 0;   ///< 1 from the first airport to the second, -1 the other way, 0 for none
};
inline constexpr std::uint8_t routeColours = 8;

/// A width of the lines, and how many flights in a week, both ways together, it begins at.
struct RouteWidth {
    double flights;
    double pixels;
};
inline constexpr std::array<RouteWidth, 5> routeWidths{{{0, 1}, {7, 1.5}, {14, 2.2}, {28, 3.2}, {70, 4.5}}};

/// One line of the legend beside a sample of the line it tells of.
struct LegendRow {
    std::string text;
    RouteLooks looks;
};

/// A network on the flat map. It holds what painting and pointing need, and knows no window.
class RoutesScene {
  public:
    RoutesScene() = default;
    /// Its lines are worked out by build.
    RoutesScene(RouteNetwork network, RouteColouring colouring);
    /// Works on until all lines are there, which gives true, or until `enough` says so, which is asked now and then.
    [[nodiscard]] bool build(const std::function<bool()>& enough);

    /// Another meaning of the colours.
    void colourBy(RouteColouring colouring);
    [[nodiscard]] RouteColouring colouring() const noexcept { return m_colouring; }

    [[nodiscard]] const RouteNetwork& network() const noexcept { return m_network; }
    /// Where the airports of the network are; those without a place are left to the caller to tell by `known`.
    [[nodiscard]] std::span<const FlatPoint> places() const noexcept { return m_places; }
    /// The places of the airports that have one.
    [[nodiscard]] std::vector<FlatPoint> knownPlaces() const;

    /// The line of a route for a world of `scale` pixels: points of the great circle as close as the eye can tell. They
    /// take the place of what `points` held.
    void line(std::size_t route, double scale, std::vector<FlatPoint>& points) const;
    /// The box around that line.
    [[nodiscard]] const FlatBox& box(std::size_t route) const noexcept { return m_boxes[route]; }
    [[nodiscard]] RouteLooks looks(std::size_t route) const noexcept { return m_looks[route]; }
    /// What colours and widths occur, and what they mean.
    [[nodiscard]] std::vector<LegendRow> legend() const;

    /// How many routes, the busiest first, a world of `scale` pixels has room for: more would cover each other.
    [[nodiscard]] std::size_t routesAt(double scale) const;

    /// The airport nearest to a place on the flat map, of those within `reach` (a width of the flat map); of equals the
    /// most important one.
    [[nodiscard]] std::optional<std::size_t> airportAt(FlatPoint place, double reach) const;
    /// The same for one of the first `routes` routes, by its line.
    [[nodiscard]] std::optional<std::size_t> routeAt(FlatPoint place, double reach, std::size_t routes) const;

    /// What is told of an airport, a line each: code and name, movements in a week, routes.
    [[nodiscard]] std::string airportText(std::size_t airport) const;
    /// What is told of a route: its airports, distance, flights of each direction in a week, the types that fly most.
    [[nodiscard]] std::string routeText(std::size_t route) const;
    /// The network in one line: routes, airports, flights in a week, and what a map of that scale does not show.
    [[nodiscard]] std::string summary(double scale) const;

  private:
    struct SinglePoint {
        float x;
        float y;
    };

    [[nodiscard]] FlatPoint point(std::uint32_t at) const noexcept { return {m_points[at].x, m_points[at].y}; }
    void addLine(const Route& route);
    [[nodiscard]] RouteLooks looksOf(std::size_t route) const;
    [[nodiscard]] bool eastward(std::size_t route) const noexcept;
    [[nodiscard]] double squareDistance(std::size_t route, FlatPoint place) const;

    RouteNetwork m_network;
    RouteColouring m_colouring = RouteColouring::Direction;
    std::vector<FlatPoint> m_places;        // of the airports
    std::vector<SinglePoint> m_points;      // of all lines, one behind the other
    std::vector<std::uint32_t> m_starts{0}; // where in them each line begins, and the end of the last
    std::vector<FlatBox> m_boxes;
    std::vector<float> m_ink; // of each line and all ahead of it: length in widths of the world, times pixels of width
    std::vector<RouteLooks> m_looks;
};

/// A count of flights: whole, or with one decimal place where it is not.
[[nodiscard]] std::string flightsText(double flights);

} // namespace vantor
