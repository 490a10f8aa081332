// Views: read-only views of one airport's traffic, computed without a window.
// The route map of an airport as drawing calls, and the sums behind its window: layout, zoom limit and drag.
#pragma once

#include "foundation/canvas.h"
#include "foundation/trap.h"

#include <string_view>

namespace vantor {

/// Prints a mark centred on a position in degrees. The scales are twips to a degree.
void plotap(Canvas& canvas, float latitude, float longitude, std::string_view text, float xscale, float yscale);
/// Prints a label above and to the left of a position.
void plotlabel(Canvas& canvas, float latitude, float longitude, std::string_view text, float xscale, float yscale);
/// Draws a line between two positions.
void plotline(Canvas& canvas, float latitude1, float longitude1, float latitude2, float longitude2, float xscale,
              float yscale, Colour colour);

/// Draws every airport that a leg links to the airport `icao`: red lines for arrivals, green ones for departures.
/// Deleted and weekly ones are drawn like others. Lets pending events run once, ahead of the drawing.
void drawRouteMap(const StandardTrap& trap, Canvas& canvas, std::string_view icao);

/// A position or size of a control in twips.
struct MapPoint {
    double x = 0;
    double y = 0;
    friend bool operator==(const MapPoint&, const MapPoint&) = default;
};

/// Whether a map of this size may be made 1.25 times as large.
[[nodiscard]] bool mayZoomIn(MapPoint size) noexcept;

/// Where the map's controls go, in twips.
struct MapLayout {
    MapPoint frame{100, 100};
    MapPoint frameSize;
    MapPoint map{1, 1};
    double buttonsTop = 0;
};
/// The layout for a window's size. A frame of `frameSize` keeps it in a window too small for it.
[[nodiscard]] MapLayout mapLayout(MapPoint window, MapPoint frameSize) noexcept;

/// The drag of the map inside its frame. Positions are those of the pointer on the map itself, in twips.
class MapDrag {
  public:
    /// A drag starts here.
    void press(float x, float y) noexcept;
    /// The next drag starts here, unless it is pressed elsewhere.
    void release(float x, float y) noexcept { press(x, y); }
    /// The map's new place. `held` tells whether the left button is down. Raises error 6 for positions out of all
    /// bounds, having moved nothing.
    [[nodiscard]] MapPoint move(float x, float y, bool held, MapPoint map, MapPoint mapSize, MapPoint frameSize);

  private:
    float m_startX = 0;
    float m_startY = 0;
    float m_lastX = 0;
    float m_lastY = 0;
};

} // namespace vantor
