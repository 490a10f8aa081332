#include "explorer/frmRoutesTiles.h"

#include "explorer/frmRoutesSurface.h"

#include <algorithm>
#include <cmath>

namespace vantor {

namespace {

constexpr int side = 512; // of a tile, in pixels of the device

} // namespace

void MapTiles::show(const RoutesScene* scene, bool dark, const QFont& font) {
    m_scene = scene;
    m_dark = dark;
    m_font = font;
    m_scale = 0;
    m_tiles.clear();
    m_job.reset();
}

void MapTiles::useScale(double scale, double pixelRatio) {
    if (scale == m_scale && pixelRatio == m_pixelRatio) {
        return;
    }
    m_scale = scale;
    m_pixelRatio = pixelRatio;
    m_tiles.clear();
    m_job.reset();
    QImage paper(1, 1, QImage::Format_ARGB32_Premultiplied);
    paper.setDevicePixelRatio(pixelRatio);
    QPainter painter(&paper);
    painter.setFont(m_font);
    m_labels = labelsOf(*m_scene, PainterSurface(painter), scale);
}

// Where the window begins on the whole map, in pixels of the device.
QPoint MapTiles::topLeft(const MapView& view) const {
    return {static_cast<int>(std::lround((view.centre.x * view.scale - view.width / 2) * m_pixelRatio)),
            static_cast<int>(std::lround((view.centre.y * view.scale - view.height / 2) * m_pixelRatio))};
}

// The tiles of the window and of a margin around it, the nearest to its middle first.
std::vector<MapTiles::Place> MapTiles::wanted(const MapView& view, int margin) const {
    const QPoint first = topLeft(view);
    const auto tileAt = [](double pixel) { return static_cast<std::int64_t>(std::floor(pixel / side)); };
    const double width = view.width * m_pixelRatio;
    const double height = view.height * m_pixelRatio;
    std::vector<Place> places;
    for (std::int64_t row = tileAt(first.y()) - margin; row <= tileAt(first.y() + height - 1) + margin; ++row) {
        for (std::int64_t column = tileAt(first.x()) - margin; column <= tileAt(first.x() + width - 1) + margin;
             ++column) {
            places.emplace_back(column, row);
        }
    }
    const auto fromMiddle = [&](const Place& place) {
        return std::hypot((static_cast<double>(place.first) + 0.5) * side - first.x() - width / 2,
                          (static_cast<double>(place.second) + 0.5) * side - first.y() - height / 2);
    };
    std::ranges::sort(places, {}, fromMiddle);
    return places;
}

void MapTiles::begin(Place place) {
    const double size = side / m_pixelRatio;
    const MapView part{{(static_cast<double>(place.first) + 0.5) * size / m_scale,
                        (static_cast<double>(place.second) + 0.5) * size / m_scale},
                       m_scale,
                       size,
                       size};
    QImage image(side, side, QImage::Format_RGB32);
    image.setDevicePixelRatio(m_pixelRatio);
    m_job.emplace(Job{place, std::move(image), MapDrawing(content(), part)});
}

// Tiles left behind come in handy on the way back, but not without end.
void MapTiles::forgetFar(const std::vector<Place>& near) {
    if (m_tiles.size() > 3 * near.size()) {
        std::erase_if(m_tiles, [&](const auto& tile) { return std::ranges::find(near, tile.first) == near.end(); });
    }
}

bool MapTiles::work(const MapView& view, double pixelRatio, Clock::time_point until) {
    if (m_scene == nullptr) {
        return false;
    }
    useScale(view.scale, pixelRatio);
    const auto late = [until] { return Clock::now() >= until; };
    const std::vector<Place> inWindow = wanted(view, 0);
    std::vector<Place> places = inWindow;
    for (const Place& place : wanted(view, 1)) {
        if (std::ranges::find(inWindow, place) == inWindow.end()) {
            places.push_back(place);
        }
    }
    forgetFar(places);
    m_idle = true;
    for (const Place& place : places) {
        if (m_tiles.contains(place)) {
            continue;
        }
        if (late()) {
            m_idle = false;
            break;
        }
        if (!m_job || m_job->place != place) {
            begin(place);
        }
        QPainter painter(&m_job->image);
        painter.setFont(m_font);
        PainterSurface surface(painter);
        if (!m_job->drawing.goOn(surface, late)) {
            m_idle = false;
            break;
        }
        painter.end();
        m_tiles.emplace(place, std::move(m_job->image));
        m_job.reset();
    }
    return std::ranges::all_of(inWindow, [this](const Place& place) { return m_tiles.contains(place); });
}

double MapTiles::progress(const MapView& view) const {
    const std::vector<Place> places = wanted(view, 0);
    const auto there = std::ranges::count_if(places, [this](const Place& place) { return m_tiles.contains(place); });
    return static_cast<double>(there) / static_cast<double>(std::max<std::size_t>(1, places.size()));
}

void MapTiles::paint(QPainter& painter, const MapView& view, double pixelRatio) {
    const QPoint first = topLeft(view);
    const FlatPoint keptCorner = view.toWindow(m_keptView.toFlat({0, 0}));
    const double factor = view.scale / m_keptView.scale;
    const QRectF keptRect(keptCorner.x, keptCorner.y, m_keptView.width * factor, m_keptView.height * factor);
    for (const Place& place : wanted(view, 0)) {
        const QPointF corner(static_cast<double>(place.first * side - first.x()) / pixelRatio,
                             static_cast<double>(place.second * side - first.y()) / pixelRatio);
        if (const auto tile = m_tiles.find(place); tile != m_tiles.end()) {
            painter.drawImage(corner, tile->second);
        } else if (!m_kept.isNull()) {
            // Only where it shows: drawing all of it in another size takes most of a frame's time.
            painter.save();
            painter.setClipRect(QRectF(corner, QSizeF(side, side) / pixelRatio), Qt::IntersectClip);
            painter.drawImage(keptRect, m_kept);
            painter.restore();
        }
    }
}

void MapTiles::keep(const QImage& window, const MapView& view) {
    m_kept = window;
    m_keptView = view;
}

} // namespace vantor
