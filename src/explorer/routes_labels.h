// Explorer: all flights in one table, on a world map, and checked.
// Which airports of the map get their code beside them, and on which side.
#pragma once

#include "explorer/projection.h"

#include <cstddef>
#include <span>
#include <vector>

namespace vantor {

/// Sizes in pixels.
struct LabelSize {
    double width = 0;  ///< of the text; 0 for a place that gets no label
    double radius = 0; ///< of the dot that stands at the place
};

/// A label and where it goes: its box in pixels, from the place's own point.
struct MapLabel {
    std::size_t airport = 0;
    FlatBox box;
};

/// The labels of a world of `scale` pixels. Places stand in the order of their importance; each takes the first side of
/// its dot (right, left, above, below) where no more important label or labelled dot stands, and none if there is none,
/// nor when those that are placed fill a tenth of the world.
/// The choice is the same for every part of the world, so that labels stay while it is dragged.
[[nodiscard]] std::vector<MapLabel> placeLabels(std::span<const FlatPoint> places, std::span<const LabelSize> sizes,
                                                double height, double scale);

} // namespace vantor
