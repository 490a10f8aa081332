// Explorer: all flights in one table, on a world map, and checked.
// The map as the text of an SVG picture.
#pragma once

#include "explorer/routes_surface.h"

#include <functional>
#include <string>
#include <string_view>

namespace vantor {

/// The font of an SVG picture: its family as CSS names it, its size in pixels, and its measures.
struct SvgFont {
    std::string family;
    double size = 12;
    double height = 15;                              ///< of a line
    double ascent = 12;                              ///< of the baseline below the top of a line
    std::function<double(std::string_view)> widthOf; ///< of a text of the code page, in pixels
};

/// Collects what is drawn as elements of SVG 1.1. What lies outside of the picture is cut off by the viewer.
class SvgSurface : public MapSurface {
  public:
    SvgSurface(double width, double height, SvgFont font);

    void fillBox(const FlatBox& box, MapColour colour, double opacity) override;
    void fillArea(std::span<const FlatPoint> outline, MapColour colour) override;
    void drawLine(std::span<const FlatPoint> points, const MapPen& pen) override;
    void drawDot(FlatPoint centre, double radius, MapColour fill, MapColour rim) override;
    void drawText(const FlatBox& box, std::string_view text, MapColour colour, MapColour halo) override;
    [[nodiscard]] double textWidth(std::string_view text) const override { return m_font.widthOf(text); }
    [[nodiscard]] double textHeight() const override { return m_font.height; }

    /// The whole file in UTF-8, with a title that viewers and screen readers tell.
    [[nodiscard]] std::string file(std::string_view title) const;

  private:
    double m_width;
    double m_height;
    SvgFont m_font;
    std::string m_elements;
};

} // namespace vantor
