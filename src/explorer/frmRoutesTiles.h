// Explorer: all flights in one table, on a world map, and checked.
// The map's painted tiles: dragging moves them, and only what comes into the window is painted anew, in slices.
#pragma once

#include "explorer/routes_drawing.h"

#include <QFont>
#include <QImage>
#include <QPainter>

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace vantor {

/// Squares of the map at one scale. Until all that a window needs are there, the last full window stands in for them,
/// moved and scaled.
class MapTiles {
  public:
    using Clock = std::chrono::steady_clock;

    /// What the tiles show. The scene must outlive them, or be replaced here.
    void show(const RoutesScene* scene, bool dark, const QFont& font);
    /// Paints what is missing in a window and around it, until all is there or the time is over. True when the window
    /// itself is complete.
    bool work(const MapView& view, double pixelRatio, Clock::time_point until);
    /// How much of a window is there, 0 to 1.
    [[nodiscard]] double progress(const MapView& view) const;
    /// Whether the last work left nothing to do, not even around the window.
    [[nodiscard]] bool idle() const noexcept { return m_idle; }
    /// Shows what is there.
    void paint(QPainter& painter, const MapView& view, double pixelRatio);
    /// Keeps a complete window, to stand in later.
    void keep(const QImage& window, const MapView& view);
    /// The content as the tiles show it, for what is drawn on top of them.
    [[nodiscard]] MapContent content() const { return {*m_scene, mapColours(m_dark), m_labels}; }

  private:
    using Place = std::pair<std::int64_t, std::int64_t>; // column and row
    struct Job {
        Place place;
        QImage image;
        MapDrawing drawing;
    };

    void useScale(double scale, double pixelRatio);
    [[nodiscard]] std::vector<Place> wanted(const MapView& view, int margin) const;
    [[nodiscard]] QPoint topLeft(const MapView& view) const;
    void begin(Place place);
    void forgetFar(const std::vector<Place>& near);

    const RoutesScene* m_scene = nullptr;
    bool m_dark = false;
    QFont m_font;
    double m_scale = 0;
    double m_pixelRatio = 0;
    std::vector<MapLabel> m_labels;
    std::map<Place, QImage> m_tiles;
    std::optional<Job> m_job;
    QImage m_kept;
    MapView m_keptView;
    bool m_idle = true;
};

} // namespace vantor
