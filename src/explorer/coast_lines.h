// Explorer: all flights in one table, on a world map, and checked.
// The land of the world as Natural Earth draws it, at two levels of detail.
#pragma once

#include "explorer/projection.h"

#include <vector>

namespace vantor {

/// An outline on the flat map, continuous across the date line; its last point is joined to its first.
struct CoastRing {
    std::vector<FlatPoint> points;
    FlatBox box;
    bool lake = false; ///< water inside the land of a ring ahead of it
};
using CoastLines = std::vector<CoastRing>;

/// The land for a world of `scale` pixels: 1:110m, or from some zoom on 1:50m. Each is made at its first use.
[[nodiscard]] const CoastLines& coastLines(double scale);

/// Whether a piece of an outline is a shore. The date line, where the source cuts small islands in two, and the rim of
/// the pole are none.
[[nodiscard]] bool isShore(FlatPoint from, FlatPoint to) noexcept;

} // namespace vantor
