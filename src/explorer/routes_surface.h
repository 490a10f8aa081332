// Explorer: all flights in one table, on a world map, and checked.
// What the map is drawn on: a window, a printer, a picture file. And the colours that it is drawn in.
#pragma once

#include "explorer/projection.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace vantor {

/// 0xRRGGBB.
using MapColour = std::uint32_t;

/// How a line is drawn.
struct MapPen {
    MapColour colour = 0;
    double width = 1;                 ///< pixels
    double opacity = 1;               ///< 0 to 1
    std::span<const double> dashes{}; ///< lengths drawn and left out in turn, in pixels; none for an unbroken line
    double along = 0;                 ///< where in the dashes the line begins, in pixels
};

/// A surface in pixels, y downward. Texts are bytes of the code page.
class MapSurface {
  public:
    MapSurface() = default;
    MapSurface(const MapSurface&) = delete;
    MapSurface& operator=(const MapSurface&) = delete;
    virtual ~MapSurface() = default;

    virtual void fillBox(const FlatBox& box, MapColour colour, double opacity) = 0;
    virtual void fillArea(std::span<const FlatPoint> outline, MapColour colour) = 0;
    virtual void drawLine(std::span<const FlatPoint> points, const MapPen& pen) = 0;
    virtual void drawDot(FlatPoint centre, double radius, MapColour fill, MapColour rim) = 0;
    /// A text in the middle of a box's height, from its left side on; a halo sets it off from what is below it.
    virtual void drawText(const FlatBox& box, std::string_view text, MapColour colour, MapColour halo) = 0;
    [[nodiscard]] virtual double textWidth(std::string_view text) const = 0;
    [[nodiscard]] virtual double textHeight() const = 0;
};

/// The colours of the map. Those of the routes can be told apart by the colour-blind, after the set of M. Okabe and K.
/// Ito.
struct MapColours {
    MapColour outside;
    MapColour sea;
    MapColour land;
    MapColour shore;
    MapColour grid;
    MapColour text;
    MapColour halo;
    MapColour dot;
    MapColour highlight;
    std::array<MapColour, 9> routes; ///< by RouteLooks::colour; the last is that of samples of a width
};
[[nodiscard]] const MapColours& mapColours(bool dark) noexcept;

} // namespace vantor
