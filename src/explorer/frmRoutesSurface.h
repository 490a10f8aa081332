// Explorer: all flights in one table, on a world map, and checked.
// The map's surface on whatever a QPainter paints on.
#pragma once

#include "explorer/routes_surface.h"

#include <QFontMetricsF>
#include <QPainter>

namespace vantor {

/// Paints in the painter's own units, one to a pixel of the map, with its font.
class PainterSurface : public MapSurface {
  public:
    explicit PainterSurface(QPainter& painter);

    void fillBox(const FlatBox& box, MapColour colour, double opacity) override;
    void fillArea(std::span<const FlatPoint> outline, MapColour colour) override;
    void drawLine(std::span<const FlatPoint> points, const MapPen& pen) override;
    void drawDot(FlatPoint centre, double radius, MapColour fill, MapColour rim) override;
    void drawText(const FlatBox& box, std::string_view text, MapColour colour, MapColour halo) override;
    [[nodiscard]] double textWidth(std::string_view text) const override;
    [[nodiscard]] double textHeight() const override;

  private:
    void usePen(const MapPen& pen);

    QPainter& m_painter;
    QFontMetricsF m_metrics;
    MapPen m_pen; // the one that the painter has
    bool m_hasPen = false;
};

} // namespace vantor
