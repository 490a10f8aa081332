#include "shell/artwork.h"

#include "shell/artwork_land.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <ranges>

namespace vantor {

namespace {

constexpr QColor nightAbove(10, 20, 48);
constexpr QColor nightBelow(26, 54, 104);
constexpr QColor land(92, 134, 196);
constexpr QColor route(255, 196, 96);
constexpr QColor airport(255, 232, 190);

constexpr double radians = std::numbers::pi / 180;

/// A place in degrees, x east and y north.
using Place = QPointF;

/// The part of the world that the splash shows, in degrees.
constexpr double west = -125;
constexpr double east = 85;
constexpr double north = 78;
constexpr double south = -42;

constexpr Place seattle(-122, 47);
constexpr Place newYork(-74, 41);
constexpr Place miami(-80, 26);
constexpr Place saoPaulo(-46, -23);
constexpr Place reykjavik(-22, 64);
constexpr Place london(0, 51);
constexpr Place frankfurt(9, 50);
constexpr Place moscow(37, 56);
constexpr Place dubai(55, 25);
constexpr Place nairobi(37, -1);
constexpr Place capeTown(19, -34);
constexpr Place mumbai(73, 19);

struct Route {
    Place from;
    Place to;
    double flown; ///< how far the aircraft on it is, 0 to 1; below 0 for none
};

constexpr std::array routes = {
    Route{seattle, london, 0.62},    Route{newYork, london, 0.35},   Route{miami, newYork, -1},
    Route{newYork, saoPaulo, 0.4},   Route{london, capeTown, -1},    Route{frankfurt, dubai, 0.5},
    Route{frankfurt, nairobi, 0.58}, Route{london, moscow, -1},      Route{dubai, mumbai, -1},
    Route{seattle, newYork, 0.45},   Route{reykjavik, london, -1},   Route{moscow, mumbai, 0.55},
    Route{miami, saoPaulo, -1},      Route{saoPaulo, frankfurt, -1}, Route{reykjavik, newYork, -1},
};

struct Direction {
    double x = 0;
    double y = 0;
    double z = 0;
};

Direction direction(Place place) {
    const double longitude = place.x() * radians;
    const double latitude = place.y() * radians;
    return {std::cos(latitude) * std::cos(longitude), std::cos(latitude) * std::sin(longitude), std::sin(latitude)};
}

/// The place at `fraction` of the great circle between two places that are neither equal nor antipodes (spherical
/// linear interpolation).
Place alongGreatCircle(Place from, Place to, double fraction) {
    const Direction a = direction(from);
    const Direction b = direction(to);
    const double angle = std::acos(a.x * b.x + a.y * b.y + a.z * b.z);
    const double p = std::sin((1 - fraction) * angle) / std::sin(angle);
    const double q = std::sin(fraction * angle) / std::sin(angle);
    const Direction d{p * a.x + q * b.x, p * a.y + q * b.y, p * a.z + q * b.z};
    return {std::atan2(d.y, d.x) / radians, std::asin(d.z) / radians};
}

QPointF onMap(Place place, QSizeF size) {
    return {(place.x() - west) / (east - west) * size.width(), (north - place.y()) / (north - south) * size.height()};
}

/// An airliner from above, its nose at (0, -1), two units long.
QPainterPath airliner() {
    constexpr std::array<QPointF, 10> right = {{{0.05, -0.97},
                                                {0.1, -0.85},
                                                {0.11, -0.3},
                                                {0.95, 0.3},
                                                {0.95, 0.42},
                                                {0.11, 0.16},
                                                {0.08, 0.66},
                                                {0.36, 0.9},
                                                {0.36, 0.98},
                                                {0, 0.88}}};
    QPainterPath path(QPointF(0, -1));
    for (const QPointF& point : right) {
        path.lineTo(point);
    }
    for (const QPointF& point : std::ranges::reverse_view(right)) {
        path.lineTo(-point.x(), point.y());
    }
    path.closeSubpath();
    return path;
}

/// Draws the aircraft with its centre at `position`, `length` long, its nose towards `heading` (degrees clockwise,
/// 0 upward).
void drawAirliner(QPainter& painter, QPointF position, double length, double heading, const QColor& colour) {
    painter.save();
    painter.translate(position);
    painter.rotate(heading);
    painter.scale(length / 2, length / 2);
    painter.fillPath(airliner(), colour);
    painter.restore();
}

void drawNight(QPainter& painter, QRectF area) {
    QLinearGradient night(area.topLeft(), area.bottomLeft());
    night.setColorAt(0, nightAbove);
    night.setColorAt(1, nightBelow);
    painter.fillRect(area, night);
}

/// A pixmap of a size in device-independent pixels, all clear.
QPixmap blank(QSize size, qreal ratio) {
    QPixmap pixmap((QSizeF(size) * ratio).toSize().expandedTo(QSize(1, 1)));
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

QColor faded(QColor colour, double opacity) {
    colour.setAlphaF(static_cast<float>(opacity));
    return colour;
}

/// The lands as a screen of dots.
void drawLands(QPainter& painter, QSizeF size) {
    constexpr int step = 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(faded(land, 0.75));
    const double radius = size.width() / (east - west) * step * 0.3;
    for (int latitude = static_cast<int>(south); latitude < north; latitude += step) {
        for (int longitude = static_cast<int>(west); longitude < east; longitude += step) {
            const Place place(longitude + step / 2.0, latitude + step / 2.0);
            const auto holds = [&](const QPolygonF& outline) { return outline.containsPoint(place, Qt::OddEvenFill); };
            if (std::ranges::any_of(landOutlines(), holds)) {
                painter.drawEllipse(onMap(place, size), radius, radius);
            }
        }
    }
}

void drawGraticule(QPainter& painter, QSizeF size) {
    constexpr int step = 15;
    painter.setPen(QPen(faded(land, 0.16), 0));
    for (int longitude = -120; longitude < east; longitude += step) {
        painter.drawLine(onMap({double(longitude), north}, size), onMap({double(longitude), south}, size));
    }
    for (int latitude = -30; latitude < north; latitude += step) {
        painter.drawLine(onMap({west, double(latitude)}, size), onMap({east, double(latitude)}, size));
    }
}

void drawRoute(QPainter& painter, QSizeF size, const Route& flight) {
    constexpr int pieces = 48;
    QPainterPath path(onMap(flight.from, size));
    for (int piece = 1; piece <= pieces; ++piece) {
        path.lineTo(onMap(alongGreatCircle(flight.from, flight.to, double(piece) / pieces), size));
    }
    const double unit = size.height() / 100;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(faded(route, 0.2), unit));
    painter.drawPath(path);
    painter.setPen(QPen(faded(route, 0.9), unit * 0.3));
    painter.drawPath(path);
}

void drawAircraftOn(QPainter& painter, QSizeF size, const Route& flight) {
    if (flight.flown < 0) {
        return;
    }
    const QPointF before = onMap(alongGreatCircle(flight.from, flight.to, flight.flown - 0.01), size);
    const QPointF after = onMap(alongGreatCircle(flight.from, flight.to, flight.flown + 0.01), size);
    const double heading = std::atan2(after.x() - before.x(), before.y() - after.y()) / radians;
    drawAirliner(painter, (before + after) / 2, size.height() / 15, heading, Qt::white);
}

void drawAirport(QPainter& painter, QSizeF size, Place place) {
    const QPointF centre = onMap(place, size);
    const double radius = size.height() / 130;
    painter.setPen(Qt::NoPen);
    painter.setBrush(faded(route, 0.3));
    painter.drawEllipse(centre, radius * 2.2, radius * 2.2);
    painter.setBrush(airport);
    painter.drawEllipse(centre, radius, radius);
}

/// The icon: an aircraft climbing over the curve of the earth.
QPixmap iconPicture(int side) {
    QPixmap pixmap = blank({side, side}, 1);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const double unit = side / 100.0;
    QPainterPath tile;
    tile.addRoundedRect(QRectF(2, 2, 96, 96), 22, 22);
    painter.scale(unit, unit);
    painter.setClipPath(tile);
    drawNight(painter, QRectF(0, 0, 100, 100));
    painter.setPen(Qt::NoPen);
    painter.setBrush(faded(land, 0.55));
    painter.drawEllipse(QPointF(50, 150), 84, 84);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(route, 5));
    painter.drawEllipse(QPointF(50, 150), 84, 84);
    drawAirliner(painter, {50, 43}, 68, 45, Qt::white);
    return pixmap;
}

} // namespace

QIcon applicationIcon() {
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 48, 64, 128, 256}) {
        icon.addPixmap(iconPicture(side));
    }
    return icon;
}

QSize splashSize(const QFontMetrics& metrics) {
    return {metrics.height() * 35, metrics.height() * 20};
}

QPixmap splashPicture(QSize size, qreal ratio) {
    QPixmap pixmap = blank(size, ratio);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QSizeF area(size);
    drawNight(painter, QRectF(QPointF(), area));
    drawGraticule(painter, area);
    drawLands(painter, area);
    for (const Route& flight : routes) {
        drawRoute(painter, area, flight);
    }
    for (const Route& flight : routes) {
        drawAirport(painter, area, flight.from);
        drawAirport(painter, area, flight.to);
    }
    for (const Route& flight : routes) {
        drawAircraftOn(painter, area, flight);
    }
    QLinearGradient calm(0, area.height() * 0.62, 0, area.height());
    calm.setColorAt(0, faded(nightAbove, 0));
    calm.setColorAt(0.5, faded(nightAbove, 0.85));
    calm.setColorAt(1, nightAbove);
    painter.fillRect(QRectF(QPointF(0, area.height() * 0.62), QPointF(area.width(), area.height())), calm);
    return pixmap;
}

QPixmap clunkPicture(QSize size, qreal ratio) {
    QPixmap pixmap = blank(size, ratio);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const double width = size.width();
    const double height = size.height();
    drawNight(painter, QRectF(0, 0, width, height));
    QPainterPath path(QPointF(width * 0.08, height * 0.82));
    path.quadTo(QPointF(width * 0.45, height * 0.05), QPointF(width * 0.92, height * 0.6));
    const double unit = std::min(width, height) / 100;
    painter.setPen(QPen(route, unit * 3));
    painter.drawPath(path);
    painter.setPen(Qt::NoPen);
    painter.setBrush(airport);
    painter.drawEllipse(path.pointAtPercent(0), unit * 6, unit * 6);
    painter.drawEllipse(path.pointAtPercent(1), unit * 6, unit * 6);
    const double flown = 0.5;
    drawAirliner(painter, path.pointAtPercent(flown), unit * 50, 90 - path.angleAtPercent(flown), Qt::white);
    return pixmap;
}

} // namespace vantor
