#include "explorer/projection.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vantor {

namespace {

using std::numbers::pi;

constexpr double greatestScale = 80000; // 222 pixels to a degree

double radians(double degrees) {
    return degrees * pi / 180;
}

double degrees(double radians) {
    return radians * 180 / pi;
}

struct Vector {
    double x;
    double y;
    double z;
};

Vector vectorOf(GeoPoint place) {
    const double latitude = radians(std::clamp(place.latitude, -90.0, 90.0));
    const double longitude = radians(place.longitude);
    return {std::cos(latitude) * std::cos(longitude), std::cos(latitude) * std::sin(longitude), std::sin(latitude)};
}

GeoPoint placeOf(const Vector& vector) {
    return {degrees(std::atan2(vector.z, std::hypot(vector.x, vector.y))), degrees(std::atan2(vector.y, vector.x))};
}

// By the cross product, which tells small angles and those near 180 degrees as well as all others.
double angleBetween(const Vector& a, const Vector& b) {
    const double cross = std::hypot(a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x);
    return std::atan2(cross, a.x * b.x + a.y * b.y + a.z * b.z);
}

double wrapped(double x) {
    return x - std::floor(x);
}

void appendNearest(std::vector<FlatPoint>& line, FlatPoint point) {
    if (!line.empty()) {
        point.x += std::round(line.back().x - point.x);
    }
    line.push_back(point);
}

void appendArc(std::vector<FlatPoint>& line, GeoPoint from, GeoPoint to, double pieceDegrees) {
    const Vector a = vectorOf(from);
    const Vector b = vectorOf(to);
    const double angle = angleBetween(a, b);
    const int pieces = std::max(1, static_cast<int>(std::ceil(degrees(angle) / pieceDegrees)));
    const double sine = std::sin(angle);
    for (int i = 1; i < pieces; ++i) {
        const double f = static_cast<double>(i) / pieces;
        const double p = std::sin((1 - f) * angle) / sine;
        const double q = std::sin(f * angle) / sine;
        appendNearest(line, project(placeOf({p * a.x + q * b.x, p * a.y + q * b.y, p * a.z + q * b.z})));
    }
    appendNearest(line, project(to));
}

} // namespace

void FlatBox::add(FlatPoint point) noexcept {
    left = std::min(left, point.x);
    top = std::min(top, point.y);
    right = std::max(right, point.x);
    bottom = std::max(bottom, point.y);
}

FlatPoint project(GeoPoint place) noexcept {
    const double latitude = radians(std::clamp(place.latitude, -90.0, 90.0));
    const double y = 1.25 * std::log(std::tan(pi / 4 + 0.4 * latitude));
    return {(place.longitude + 180) / 360, -y / (2 * pi)};
}

GeoPoint unproject(FlatPoint point) noexcept {
    const double y = -point.y * 2 * pi;
    return {degrees(2.5 * std::atan(std::exp(0.8 * y)) - 0.625 * pi), wrapped(point.x) * 360 - 180};
}

std::vector<FlatPoint> greatCircle(GeoPoint from, GeoPoint to, double pieceDegrees) {
    std::vector<FlatPoint> line;
    FlatPoint start = project(from);
    start.x = wrapped(start.x);
    line.push_back(start);
    constexpr double nearlyOpposite = pi - 1e-6; // a few metres
    if (angleBetween(vectorOf(from), vectorOf(to)) > nearlyOpposite) {
        // Every great circle through the one meets the other. The two halves meet the pole on their own meridians.
        appendArc(line, from, {90, from.longitude}, pieceDegrees);
        appendNearest(line, project({90, to.longitude}));
        appendArc(line, {90, to.longitude}, to, pieceDegrees);
    } else {
        appendArc(line, from, to, pieceDegrees);
    }
    return line;
}

FlatPoint MapView::toWindow(FlatPoint flat) const noexcept {
    return {(flat.x - centre.x) * scale + width / 2, (flat.y - centre.y) * scale + height / 2};
}

FlatPoint MapView::toFlat(FlatPoint window) const noexcept {
    return {(window.x - width / 2) / scale + centre.x, (window.y - height / 2) / scale + centre.y};
}

FlatBox MapView::box() const noexcept {
    const FlatPoint first = toFlat({0, 0});
    const FlatPoint last = toFlat({width, height});
    return {first.x, first.y, last.x, last.y};
}

double MapView::leastScale() const noexcept {
    return std::max(64.0, std::min(width, height / (2 * halfWorldHeight)));
}

MapView MapView::limited() const noexcept {
    MapView view = *this;
    view.scale = std::clamp(scale, leastScale(), std::max(greatestScale, leastScale()));
    const double room = std::max(0.0, halfWorldHeight - height / 2 / view.scale);
    view.centre.y = std::clamp(centre.y, -room, room);
    return view;
}

MapView MapView::zoomed(double factor, FlatPoint window) const noexcept {
    const FlatPoint held = toFlat(window);
    MapView view = *this;
    view.scale = std::clamp(scale * factor, leastScale(), std::max(greatestScale, leastScale()));
    const FlatPoint moved = view.toFlat(window);
    view.centre.x += held.x - moved.x;
    view.centre.y += held.y - moved.y;
    return view.limited();
}

MapView MapView::dragged(FlatPoint from, FlatPoint to) const noexcept {
    MapView view = *this;
    view.centre.x -= (to.x - from.x) / scale;
    view.centre.y -= (to.y - from.y) / scale;
    return view.limited();
}

MapView MapView::resized(double newWidth, double newHeight) const noexcept {
    MapView view = *this;
    view.width = newWidth;
    view.height = newHeight;
    return view.limited();
}

MapView MapView::fitted(std::span<const FlatPoint> points) const noexcept {
    MapView view = *this;
    if (points.empty()) {
        view.centre = {0.5, 0};
        view.scale = 0;
        return view.limited();
    }
    std::vector<double> xs;
    double top = halfWorldHeight;
    double bottom = -halfWorldHeight;
    for (const FlatPoint& point : points) {
        xs.push_back(wrapped(point.x));
        top = std::min(top, point.y);
        bottom = std::max(bottom, point.y);
    }
    // The widest gap between neighbours, around the Earth, is what need not be seen.
    std::ranges::sort(xs);
    double left = xs.front();
    double span = xs.back() - xs.front();
    for (std::size_t i = 1; i < xs.size(); ++i) {
        if (const double around = 1 - (xs[i] - xs[i - 1]); around < span) {
            left = xs[i];
            span = around;
        }
    }
    constexpr double margin = 1.15; // for the labels at the rim
    constexpr double closest = 12000;
    constexpr double nearlyAll = 0.7; // a network around the Earth is shown as maps show it, Europe in the middle
    view.centre = {span > nearlyAll ? 0.5 : left + span / 2, (top + bottom) / 2};
    view.scale = std::min({closest, span > nearlyAll ? width : width / margin / std::max(span, 1e-9),
                           height / margin / std::max(bottom - top, 1e-9)});
    return view.limited();
}

} // namespace vantor
