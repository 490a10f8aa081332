// Explorer: all flights in one table, on a world map, and checked.
// The drawing of the map: land, routes, airports, labels, and the legend.
#pragma once

#include "explorer/coast_lines.h"
#include "explorer/routes_labels.h"
#include "explorer/routes_scene.h"
#include "explorer/routes_surface.h"

#include <functional>
#include <span>
#include <vector>

namespace vantor {

/// What is drawn. It must outlive the drawing.
struct MapContent {
    const RoutesScene& scene;
    const MapColours& colours;
    std::span<const MapLabel> labels; ///< placed for the scale of the view
};

/// The labels for a scale, measured as the surface writes.
[[nodiscard]] std::vector<MapLabel> labelsOf(const RoutesScene& scene, const MapSurface& surface, double scale);

/// The drawing of one part of the map. It can be done in slices, and nothing of it shows outside of the part's window
/// but what a clip takes off.
class MapDrawing {
  public:
    /// `part` may be any part of the flat map, larger than the world too.
    MapDrawing(const MapContent& content, const MapView& part);

    /// Draws on until all is drawn, which gives true, or until `enough` says so, which is asked every now and then.
    [[nodiscard]] bool goOn(MapSurface& surface, const std::function<bool()>& enough);
    /// Draws all that is left.
    void finish(MapSurface& surface);

  private:
    enum class Layer { Sea, Land, Shores, Grid, Routes, Airports, Labels, Done };

    void drawSea(MapSurface& surface) const;
    void drawLand(MapSurface& surface, bool shores);
    void drawShore(MapSurface& surface, const CoastRing& ring, const FlatBox& box, double copy);
    void drawGrid(MapSurface& surface) const;
    void drawRoute(MapSurface& surface, std::size_t route);
    void drawAirport(MapSurface& surface, std::size_t airport) const;
    void drawLabel(MapSurface& surface, const MapLabel& label) const;
    [[nodiscard]] std::size_t layerSize() const noexcept;
    void drawItem(MapSurface& surface, std::size_t item);

    MapContent m_content;
    MapView m_part;
    FlatBox m_box;
    std::size_t m_routes; // that are drawn at this scale
    double m_dots;        // the size of dots at this scale, 1 where there is room
    Layer m_layer = Layer::Sea;
    std::size_t m_next = 0;        // item of the layer
    std::vector<FlatPoint> m_line; // kept for its room
    std::vector<FlatPoint> m_run;
};

/// Draws one route once more, on top of the map, so that it stands out.
void drawHighlight(MapSurface& surface, const MapContent& content, const MapView& view, std::size_t route);
/// Rings an airport of the map.
void drawRing(MapSurface& surface, const MapContent& content, const MapView& view, std::size_t airport);
/// The legend in the window's lower left corner; nothing where it would take most of it.
void drawLegend(MapSurface& surface, const MapContent& content, const MapView& view);

} // namespace vantor
