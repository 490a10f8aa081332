#include "explorer/frmRoutesSurface.h"

#include "platform/code_page.h"

#include <QPainterPath>

#include <algorithm>
#include <vector>

namespace vantor {

namespace {

QColor colourOf(MapColour colour, double opacity = 1) {
    QColor result(static_cast<QRgb>(colour));
    result.setAlphaF(static_cast<float>(opacity));
    return result;
}

QRectF rectOf(const FlatBox& box) {
    return {QPointF(box.left, box.top), QPointF(box.right, box.bottom)};
}

QPolygonF polygonOf(std::span<const FlatPoint> points) {
    QPolygonF polygon;
    polygon.reserve(static_cast<qsizetype>(points.size()));
    for (const FlatPoint& point : points) {
        polygon.append({point.x, point.y});
    }
    return polygon;
}

} // namespace

PainterSurface::PainterSurface(QPainter& painter) : m_painter(painter), m_metrics(painter.font(), painter.device()) {
    painter.setRenderHint(QPainter::Antialiasing);
}

void PainterSurface::fillBox(const FlatBox& box, MapColour colour, double opacity) {
    m_painter.fillRect(rectOf(box), colourOf(colour, opacity));
}

void PainterSurface::fillArea(std::span<const FlatPoint> outline, MapColour colour) {
    m_hasPen = false;
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(colourOf(colour));
    m_painter.drawPolygon(polygonOf(outline));
}

// Setting a pen costs as much as a short line; most lines look like the one before.
void PainterSurface::usePen(const MapPen& pen) {
    const bool same = m_hasPen && pen.colour == m_pen.colour && pen.width == m_pen.width &&
                      pen.opacity == m_pen.opacity && pen.dashes.data() == m_pen.dashes.data() &&
                      (pen.dashes.empty() || pen.along == m_pen.along);
    if (same) {
        return;
    }
    QPen painted(colourOf(pen.colour, pen.opacity), pen.width, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin);
    if (!pen.dashes.empty()) {
        // In widths of the pen.
        QList<qreal> pattern;
        for (const double length : pen.dashes) {
            pattern.append(length / pen.width);
        }
        painted.setDashPattern(pattern);
        painted.setDashOffset(pen.along / pen.width);
    }
    m_painter.setPen(painted);
    m_painter.setBrush(Qt::NoBrush);
    m_pen = pen;
    m_hasPen = true;
}

void PainterSurface::drawLine(std::span<const FlatPoint> points, const MapPen& pen) {
    usePen(pen);
    m_painter.drawPolyline(polygonOf(points));
}

void PainterSurface::drawDot(FlatPoint centre, double radius, MapColour fill, MapColour rim) {
    m_hasPen = false;
    m_painter.setPen(QPen(colourOf(rim), 1));
    m_painter.setBrush(colourOf(fill));
    m_painter.drawEllipse(QPointF(centre.x, centre.y), radius, radius);
}

void PainterSurface::drawText(const FlatBox& box, std::string_view text, MapColour colour, MapColour halo) {
    m_hasPen = false;
    const QString words = toQString(text);
    const QPointF base(box.left, (box.top + box.bottom - m_metrics.height()) / 2 + m_metrics.ascent());
    QPainterPath outline;
    outline.addText(base, m_painter.font(), words);
    m_painter.setBrush(Qt::NoBrush);
    m_painter.setPen(QPen(colourOf(halo), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    m_painter.drawPath(outline);
    m_painter.setPen(colourOf(colour));
    m_painter.drawText(base, words);
}

double PainterSurface::textWidth(std::string_view text) const {
    return m_metrics.horizontalAdvance(toQString(text));
}

double PainterSurface::textHeight() const {
    return m_metrics.height();
}

} // namespace vantor
