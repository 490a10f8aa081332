#include "explorer/routes_clip.h"

namespace vantor {

std::vector<FlatPoint> clipped(std::span<const FlatPoint> outline, const FlatBox& box) {
    std::vector<FlatPoint> points(outline.begin(), outline.end());
    std::vector<FlatPoint> kept;
    // How far inside of one side a point is, below 0 for outside.
    const auto clipAt = [&](const auto& inside) {
        kept.clear();
        for (std::size_t i = 0; i < points.size(); ++i) {
            const FlatPoint a = points[i == 0 ? points.size() - 1 : i - 1];
            const FlatPoint b = points[i];
            const double before = inside(a);
            const double now = inside(b);
            if ((before < 0) != (now < 0)) {
                const double f = before / (before - now);
                kept.push_back({a.x + f * (b.x - a.x), a.y + f * (b.y - a.y)});
            }
            if (now >= 0) {
                kept.push_back(b);
            }
        }
        points.swap(kept);
    };
    clipAt([&](FlatPoint p) { return p.x - box.left; });
    clipAt([&](FlatPoint p) { return box.right - p.x; });
    clipAt([&](FlatPoint p) { return p.y - box.top; });
    clipAt([&](FlatPoint p) { return box.bottom - p.y; });
    return points;
}

} // namespace vantor
