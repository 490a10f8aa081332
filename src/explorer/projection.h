// Explorer: all flights in one table, on a world map, and checked.
// From degrees to the flat map of the world and on to a window that shows a part of it; and great circles on that map.
#pragma once

#include <span>
#include <vector>

namespace vantor {

/// A place on the Earth in degrees, south and west negative.
struct GeoPoint {
    double latitude = 0;
    double longitude = 0;
    friend bool operator==(const GeoPoint&, const GeoPoint&) = default;
};

/// A place on the flat map. The world is 1 wide, from 0 at 180 degrees west, and repeats itself to both sides; y grows
/// southward from 0 at the equator.
struct FlatPoint {
    double x = 0;
    double y = 0;
    friend bool operator==(const FlatPoint&, const FlatPoint&) = default;
};

/// A rectangle of the flat map or of a window; right and bottom are the larger ones.
struct FlatBox {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    [[nodiscard]] bool meets(const FlatBox& other) const noexcept {
        return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
    }
    [[nodiscard]] bool holds(FlatPoint point) const noexcept {
        return left <= point.x && point.x <= right && top <= point.y && point.y <= bottom;
    }
    /// The same with a margin on all sides.
    [[nodiscard]] FlatBox grown(double margin) const noexcept {
        return {left - margin, top - margin, right + margin, bottom + margin};
    }
    /// Grows as far as to hold a point.
    void add(FlatPoint point) noexcept;
    friend bool operator==(const FlatBox&, const FlatBox&) = default;
};

/// Half the height of the map, from the equator to a pole.
inline constexpr double halfWorldHeight = 0.36659949225822747;

/// The Miller cylindrical projection, y = 1.25 ln tan(pi / 4 + 0.4 latitude) for a globe of radius 1: the poles are
/// lines on it, and shapes of the middle latitudes look as on the usual maps. Source: J. P. Snyder, Map Projections -
/// A Working Manual, U.S. Geological Survey Professional Paper 1395, equations 11-1 and 11-2. Latitudes beyond a pole
/// count as the pole.
[[nodiscard]] FlatPoint project(GeoPoint place) noexcept;
/// The way back (equations 11-6 and 11-7); the longitude comes back between -180 and 180.
[[nodiscard]] GeoPoint unproject(FlatPoint point) noexcept;

/// The shortest line over the globe on the flat map, in pieces of at most `pieceDegrees` of arc (above 0). It begins
/// between x = 0 and 1 and runs on across the date line, beyond 0 or 1, instead of jumping. Of two places opposite to
/// each other it runs over the north pole. Source of the points between (slerp): E. Williams, Aviation Formulary,
/// "Intermediate points on a great circle".
[[nodiscard]] std::vector<FlatPoint> greatCircle(GeoPoint from, GeoPoint to, double pieceDegrees);

/// The part of the flat map that a window shows.
struct MapView {
    FlatPoint centre{0.5, 0};
    double scale = 800;  ///< pixels that the world is wide
    double width = 800;  ///< of the window, in pixels
    double height = 600; ///< of the window, in pixels

    [[nodiscard]] FlatPoint toWindow(FlatPoint flat) const noexcept;
    [[nodiscard]] FlatPoint toFlat(FlatPoint window) const noexcept;
    /// The part of the flat map in the window. Left and right may lie outside of 0 to 1.
    [[nodiscard]] FlatBox box() const noexcept;

    /// Made larger by a factor with the place under `window` staying there, as far as the limits let it.
    [[nodiscard]] MapView zoomed(double factor, FlatPoint window) const noexcept;
    /// What stood at `from` in the window stands at `to`.
    [[nodiscard]] MapView dragged(FlatPoint from, FlatPoint to) const noexcept;
    /// For a window of another size, with the same centre.
    [[nodiscard]] MapView resized(double newWidth, double newHeight) const noexcept;
    /// As large as the window shows all the points at, in the middle of it; a whole world without points. The points
    /// may stand together across the date line.
    [[nodiscard]] MapView fitted(std::span<const FlatPoint> points) const noexcept;

    friend bool operator==(const MapView&, const MapView&) = default;

  private:
    // Neither smaller than a whole world nor larger than the coast lines stand for, and no pole inside the window while
    // the world is higher than that.
    [[nodiscard]] MapView limited() const noexcept;
    [[nodiscard]] double leastScale() const noexcept;
};

} // namespace vantor
