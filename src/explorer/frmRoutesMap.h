// Explorer: all flights in one table, on a world map, and checked.
// The map of the routes as a control: zoomed, dragged, pointed at, by mouse and by keys.
#pragma once

#include "explorer/frmRoutesTiles.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>
#include <string>

class QHelpEvent;

namespace vantor {

/// Shows a scene. Keys: plus and minus zoom, arrows drag, Home shows all, Page Down and Page Up go through the airports
/// in the window by their importance, Enter takes the one they stand on, Escape leaves it.
class RoutesMap : public QWidget {
    Q_OBJECT
  public:
    explicit RoutesMap(QWidget* parent = nullptr);

    /// Shows a scene in place of the last one, in the same colours; the part of the world stays, but for the first
    /// scene with any airport.
    void setScene(std::unique_ptr<RoutesScene> scene);
    void setColouring(RouteColouring colouring);
    /// Shows the legend, or leaves it out, also of pictures and prints.
    void showLegend(bool shown);
    [[nodiscard]] const RoutesScene& scene() const noexcept { return *m_scene; }
    [[nodiscard]] const MapView& view() const noexcept { return m_view; }

    /// Whether the window shows all there is; while it doesn't, painting goes on by itself.
    [[nodiscard]] bool isComplete() const noexcept { return m_complete; }

    /// Zooms at the middle of the window.
    void zoom(double factor);
    /// Shows all airports at once.
    void showAll();
    /// Paints the part of the world that the window shows, with the legend, onto a page of any size, in light colours.
    void paintPage(QPainter& painter, QSizeF page) const;
    /// The same as the text of an SVG picture.
    [[nodiscard]] std::string svg() const;

    [[nodiscard]] QSize sizeHint() const override;

  Q_SIGNALS:
    /// An airport was clicked, or taken by Enter.
    void airportTaken(const QString& code);
    /// Another scale is shown, or another scene.
    void scaleChanged();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    // What stands under the pointer or was chosen by keys: an airport or else a route.
    struct Target {
        std::optional<std::size_t> airport;
        std::optional<std::size_t> route;
        friend bool operator==(const Target&, const Target&) = default;
    };

    void setView(const MapView& view);
    void refreshTiles();
    void keepWindow();
    void setTarget(const Target& target);
    [[nodiscard]] Target targetAt(QPointF place) const;
    [[nodiscard]] QString textOf(const Target& target) const;
    void showTip(QPoint globalPlace, const Target& target, const QRect& area);
    void goThroughAirports(int step);
    void takeAirport(std::size_t airport);
    [[nodiscard]] FlatPoint windowPlace(std::size_t airport) const;
    void paintOverlay(QPainter& painter);
    void paintProgress(MapSurface& surface, const MapContent& content) const;
    void paintLegend(MapSurface& surface, const MapContent& content, const MapView& view) const;
    void goOnPainting();

    std::unique_ptr<RoutesScene> m_scene;
    MapTiles m_tiles;
    MapView m_view;
    QTimer m_painting;       // runs while tiles are missing
    QElapsedTimer m_waiting; // since the window is incomplete
    Target m_target;
    std::optional<QPointF> m_pressed; // where the left button went down
    QPointF m_last;
    bool m_dragging = false;
    bool m_complete = false; // the window showed all there is
    bool m_everShown = false;
    bool m_legend = true;
};

} // namespace vantor
