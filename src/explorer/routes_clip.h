// Explorer: all flights in one table, on a world map, and checked.
// Leaving out what does not show in a part of the map.
#pragma once

#include "explorer/projection.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

namespace vantor {

/// The outline that is left of one when all outside of a box is cut off; empty if nothing is. Source: I. Sutherland and
/// G. Hodgman, Reentrant polygon clipping, Communications of the ACM 17 (1974).
[[nodiscard]] std::vector<FlatPoint> clipped(std::span<const FlatPoint> outline, const FlatBox& box);

/// The length of a straight line.
[[nodiscard]] inline double lengthOf(FlatPoint from, FlatPoint to) noexcept {
    return std::hypot(to.x - from.x, to.y - from.y);
}

/// Calls run(points, pixels of the line ahead of them) for each stretch of a line that may show in
/// a box. `points` is kept for its room.
template <class Run>
void forEachRun(std::span<const FlatPoint> line, const FlatBox& box, std::vector<FlatPoint>& points, const Run& run) {
    points.clear();
    double length = 0;
    double begins = 0;
    for (std::size_t i = 1; i < line.size(); ++i) {
        const FlatPoint a = line[i - 1];
        const FlatPoint b = line[i];
        const FlatBox piece{std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
        if (piece.meets(box)) {
            if (points.empty()) {
                points.push_back(a);
                begins = length;
            }
            points.push_back(b);
        } else if (!points.empty()) {
            run(points, begins);
            points.clear();
        }
        length += lengthOf(a, b);
    }
    if (!points.empty()) {
        run(points, begins);
    }
}

} // namespace vantor
