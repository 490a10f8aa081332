#include "explorer/frmRoutesMap.h"

#include "explorer/frmRoutesSurface.h"
#include "explorer/routes_svg.h"
#include "platform/code_page.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantor {

namespace {

constexpr double keyZoom = 1.5;
// Of each frame, so that with all the rest it stays within a sixtieth of a second.
constexpr auto paintingTime = std::chrono::milliseconds(7);

FlatPoint flat(QPointF place) {
    return {place.x(), place.y()};
}

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < 128;
}

} // namespace

RoutesMap::RoutesMap(QWidget* parent) : QWidget(parent), m_scene(std::make_unique<RoutesScene>()) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(160, 120);
    m_painting.setInterval(0);
    connect(&m_painting, &QTimer::timeout, this, &RoutesMap::goOnPainting);
    refreshTiles();
}

QSize RoutesMap::sizeHint() const {
    return {720, 480};
}

void RoutesMap::setScene(std::unique_ptr<RoutesScene> scene) {
    keepWindow();
    const RouteColouring colouring = m_scene->colouring();
    m_scene = std::move(scene);
    m_target = {};
    if (m_scene->colouring() != colouring) {
        m_scene->colourBy(colouring);
    }
    refreshTiles();
    if (!m_everShown && std::ranges::any_of(m_scene->network().airports, &RouteAirport::known)) {
        m_everShown = true;
        showAll();
    }
    Q_EMIT scaleChanged();
}

void RoutesMap::setColouring(RouteColouring colouring) {
    if (colouring != m_scene->colouring()) {
        keepWindow();
        m_scene->colourBy(colouring);
        refreshTiles();
    }
}

void RoutesMap::showLegend(bool shown) {
    m_legend = shown;
    update();
}

void RoutesMap::refreshTiles() {
    m_tiles.show(m_scene.get(), isDark(palette()), font());
    m_complete = false;
    update();
}

// So that something stands there until the new tiles are painted.
void RoutesMap::keepWindow() {
    if (!m_complete) {
        return;
    }
    QImage window(size() * devicePixelRatioF(), QImage::Format_RGB32);
    window.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(&window);
    m_tiles.paint(painter, m_view, devicePixelRatioF());
    painter.end();
    m_tiles.keep(window, m_view);
}

void RoutesMap::setView(const MapView& view) {
    if (view == m_view) {
        return;
    }
    if (view.scale != m_view.scale) {
        keepWindow();
    }
    const bool scaled = view.scale != m_view.scale;
    m_view = view;
    m_complete = false;
    update();
    if (scaled) {
        Q_EMIT scaleChanged();
    }
}

void RoutesMap::zoom(double factor) {
    setView(m_view.zoomed(factor, {m_view.width / 2, m_view.height / 2}));
}

void RoutesMap::showAll() {
    setView(m_view.fitted(m_scene->knownPlaces()));
}

void RoutesMap::paintPage(QPainter& painter, QSizeF page) const {
    // The same part of the world, with more of it where the page has another shape.
    const double factor = std::min(page.width() / m_view.width, page.height() / m_view.height);
    MapView view = m_view;
    view.width = page.width() / factor;
    view.height = page.height() / factor;
    painter.save();
    painter.scale(factor, factor);
    painter.setClipRect(QRectF(0, 0, view.width, view.height));
    QFont pixels = font();
    pixels.setPixelSize(QFontInfo(font()).pixelSize()); // the same on every device
    painter.setFont(pixels);
    PainterSurface surface(painter);
    const std::vector<MapLabel> labels = labelsOf(*m_scene, surface, view.scale);
    const MapContent content{*m_scene, mapColours(false), labels};
    MapDrawing(content, view).finish(surface);
    paintLegend(surface, content, view);
    painter.restore();
}

std::string RoutesMap::svg() const {
    const QFontMetricsF metrics(font());
    SvgSurface surface(m_view.width, m_view.height,
                       {fromQString(QFontInfo(font()).family()) + ", sans-serif",
                        static_cast<double>(QFontInfo(font()).pixelSize()), metrics.height(), metrics.ascent(),
                        [&](std::string_view text) { return metrics.horizontalAdvance(toQString(text)); }});
    const std::vector<MapLabel> labels = labelsOf(*m_scene, surface, m_view.scale);
    const MapContent content{*m_scene, mapColours(false), labels};
    MapDrawing(content, m_view).finish(surface);
    paintLegend(surface, content, m_view);
    return surface.file(m_scene->summary(m_view.scale));
}

bool RoutesMap::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        const Target target = targetAt(help->pos());
        showTip(help->globalPos(), target, QRect(help->pos(), QSize(1, 1)).adjusted(-3, -3, 3, 3));
        return true;
    }
    return QWidget::event(event);
}

void RoutesMap::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const bool wasBlank = event->oldSize().isEmpty();
    setView(m_view.resized(width(), height()));
    if (wasBlank) {
        showAll(); // what was fitted before was fitted into no window
    }
}

void RoutesMap::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        refreshTiles();
    }
}

void RoutesMap::paintEvent(QPaintEvent* /*event*/) {
    m_complete = m_tiles.work(m_view, devicePixelRatioF(), MapTiles::Clock::now() + paintingTime);
    if (m_complete) {
        m_waiting.invalidate();
    } else if (!m_waiting.isValid()) {
        m_waiting.start();
    }
    QPainter painter(this);
    if (!m_complete) {
        painter.fillRect(rect(), QColor(static_cast<QRgb>(mapColours(isDark(palette())).sea)));
    }
    m_tiles.paint(painter, m_view, devicePixelRatioF());
    paintOverlay(painter);
    if (!m_complete || !m_tiles.idle()) {
        m_painting.start();
    }
}

void RoutesMap::paintOverlay(QPainter& painter) {
    painter.setFont(font());
    PainterSurface surface(painter);
    const MapContent content = m_tiles.content();
    if (m_target.route) {
        drawHighlight(surface, content, m_view, *m_target.route);
    }
    if (m_target.airport) {
        drawRing(surface, content, m_view, *m_target.airport);
    }
    paintLegend(surface, content, m_view);
    paintProgress(surface, content);
    if (hasFocus()) {
        constexpr double frame = 2;
        painter.setPen(QPen(palette().color(QPalette::Highlight), frame));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(rect()).adjusted(frame / 2, frame / 2, -frame / 2, -frame / 2));
    }
}

void RoutesMap::paintProgress(MapSurface& surface, const MapContent& content) const {
    constexpr int patience = 500; // milliseconds
    constexpr double margin = 8;
    if (!m_waiting.isValid() || m_waiting.elapsed() < patience) {
        return;
    }
    const auto percent = static_cast<int>(m_tiles.progress(m_view) * 100);
    const std::string text = "Painting: " + std::to_string(percent) + " %";
    const FlatBox box{2 * margin, margin, 2 * margin + surface.textWidth(text), margin + 1.5 * surface.textHeight()};
    surface.fillBox({margin, margin, box.right + margin, box.bottom}, content.colours.halo, 0.88);
    surface.drawText(box, text, content.colours.text, content.colours.halo);
}

void RoutesMap::paintLegend(MapSurface& surface, const MapContent& content, const MapView& view) const {
    if (m_legend) {
        drawLegend(surface, content, view);
    }
}

// Around a complete window there is more to paint, of which nothing shows yet.
void RoutesMap::goOnPainting() {
    if (!m_complete) {
        m_painting.stop();
        update();
        return;
    }
    static_cast<void>(m_tiles.work(m_view, devicePixelRatioF(), MapTiles::Clock::now() + paintingTime));
    if (m_tiles.idle()) {
        m_painting.stop();
    }
}

void RoutesMap::wheelEvent(QWheelEvent* event) {
    constexpr double turnsToDouble = 240; // two notches
    setView(m_view.zoomed(std::exp2(event->angleDelta().y() / turnsToDouble), flat(event->position())));
    setTarget(targetAt(event->position()));
    event->accept();
}

void RoutesMap::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_pressed = m_last = event->position();
        m_dragging = false;
    }
}

void RoutesMap::mouseMoveEvent(QMouseEvent* event) {
    if (!m_pressed || !(event->buttons() & Qt::LeftButton)) {
        m_pressed.reset();
        setTarget(targetAt(event->position()));
        return;
    }
    if (!m_dragging && (event->position() - *m_pressed).manhattanLength() >= QApplication::startDragDistance()) {
        m_dragging = true;
        setTarget({});
        setCursor(Qt::ClosedHandCursor);
    }
    if (m_dragging) {
        setView(m_view.dragged(flat(m_last), flat(event->position())));
        m_last = event->position();
    }
}

void RoutesMap::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !m_pressed) {
        return;
    }
    m_pressed.reset();
    setCursor(Qt::ArrowCursor);
    if (!std::exchange(m_dragging, false)) {
        if (const Target target = targetAt(event->position()); target.airport) {
            takeAirport(*target.airport);
        }
    }
}

void RoutesMap::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        setView(m_view.dragged(flat(event->position()), {m_view.width / 2, m_view.height / 2}));
    }
}

void RoutesMap::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    if (!hasFocus()) {
        setTarget({});
    }
}

void RoutesMap::keyPressEvent(QKeyEvent* event) {
    const FlatPoint middle{m_view.width / 2, m_view.height / 2};
    const double step = std::min(m_view.width, m_view.height) / 6;
    const auto drag = [&](double x, double y) { setView(m_view.dragged(middle, {middle.x + x, middle.y + y})); };
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal: // the same key without Shift
        return zoom(keyZoom);
    case Qt::Key_Minus:
        return zoom(1 / keyZoom);
    case Qt::Key_Left:
        return drag(step, 0);
    case Qt::Key_Right:
        return drag(-step, 0);
    case Qt::Key_Up:
        return drag(0, step);
    case Qt::Key_Down:
        return drag(0, -step);
    case Qt::Key_Home:
        return showAll();
    case Qt::Key_PageDown:
        return goThroughAirports(1);
    case Qt::Key_PageUp:
        return goThroughAirports(-1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_target.airport) {
            return takeAirport(*m_target.airport);
        }
        break;
    case Qt::Key_Escape:
        if (m_target.airport) {
            QToolTip::hideText();
            return setTarget({});
        }
        break;
    default:
        break;
    }
    QWidget::keyPressEvent(event);
}

void RoutesMap::setTarget(const Target& target) {
    if (target != m_target) {
        m_target = target;
        setCursor(target.airport ? Qt::PointingHandCursor : Qt::ArrowCursor);
        update();
    }
}

RoutesMap::Target RoutesMap::targetAt(QPointF place) const {
    constexpr double airportReach = 8; // pixels
    constexpr double routeReach = 4;
    const FlatPoint at = m_view.toFlat(flat(place));
    Target target;
    target.airport = m_scene->airportAt(at, airportReach / m_view.scale);
    if (!target.airport) {
        target.route = m_scene->routeAt(at, routeReach / m_view.scale, m_scene->routesAt(m_view.scale));
    }
    return target;
}

QString RoutesMap::textOf(const Target& target) const {
    return target.airport ? toQString(m_scene->airportText(*target.airport))
           : target.route ? toQString(m_scene->routeText(*target.route))
                          : QString();
}

void RoutesMap::showTip(QPoint globalPlace, const Target& target, const QRect& area) {
    // Names may look like tags; a plain text breaks its lines where it says.
    const QString text = textOf(target).toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>"));
    QToolTip::showText(globalPlace, text.isEmpty() ? text : QStringLiteral("<p style='white-space:pre'>") + text, this,
                       area);
}

FlatPoint RoutesMap::windowPlace(std::size_t airport) const {
    FlatPoint place = m_scene->places()[airport];
    place.x += std::round(m_view.centre.x - place.x);
    return m_view.toWindow(place);
}

void RoutesMap::goThroughAirports(int step) {
    const FlatBox window{0, 0, m_view.width, m_view.height};
    const auto count = static_cast<std::ptrdiff_t>(m_scene->places().size());
    std::ptrdiff_t at = m_target.airport ? static_cast<std::ptrdiff_t>(*m_target.airport) : step > 0 ? -1 : count;
    for (at += step; at >= 0 && at < count; at += step) {
        const auto airport = static_cast<std::size_t>(at);
        if (m_scene->network().airports[airport].known && window.holds(windowPlace(airport))) {
            setTarget({airport, {}});
            const FlatPoint place = windowPlace(airport);
            setAccessibleDescription(textOf(m_target));
            showTip(mapToGlobal(QPointF(place.x, place.y)).toPoint(), m_target, {});
            return;
        }
    }
}

void RoutesMap::takeAirport(std::size_t airport) {
    Q_EMIT airportTaken(toQString(m_scene->network().airports[airport].code.text()));
}

} // namespace vantor
