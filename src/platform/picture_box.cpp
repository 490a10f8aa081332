// Platform: the Qt side of the program.
// The picture box: a Canvas that keeps what was drawn on it, 15 twips to a device-independent pixel.
#include "platform/picture_box.h"

#include "platform/code_page.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>

namespace vantor {

namespace {

double toPixels(double twips) {
    // Far outside every surface lies outside; the painter's own arithmetic stays in its range.
    constexpr double farOut = 1e6;
    return std::isfinite(twips) ? std::clamp(twips / twipsPerPixel, -farOut, farOut) : -farOut;
}

QColor toQColor(Colour colour) {
    return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

// The accessibility tree's word for it: one that takes the focus is a button that shows a picture.
class PictureNode : public QAccessibleWidget {
  public:
    explicit PictureNode(PictureBox& box) : QAccessibleWidget(&box), m_box(box) {}

    [[nodiscard]] QAccessible::Role role() const override {
        return isButton(m_box) ? QAccessible::Button : QAccessible::Graphic;
    }
    [[nodiscard]] QStringList actionNames() const override {
        return isButton(m_box) ? QStringList(pressAction()) : QStringList();
    }
    void doAction(const QString& action) override {
        if (action == pressAction()) {
            Q_EMIT m_box.clicked();
        }
    }

    static QAccessibleInterface* make(const QString& /*className*/, QObject* object) {
        auto* const box = qobject_cast<PictureBox*>(object);
        return box != nullptr ? new PictureNode(*box) : nullptr;
    }

  private:
    static bool isButton(const PictureBox& box) { return box.focusPolicy() != Qt::NoFocus; }

    PictureBox& m_box;
};

} // namespace

PictureBox::PictureBox(QWidget* parent) : QFrame(parent) {
    [[maybe_unused]] static const bool known = (QAccessible::installFactory(&PictureNode::make), true);
    setAttribute(Qt::WA_OpaquePaintEvent, false);
}

PictureBox::~PictureBox() {
    endPainting();
}

double PictureBox::innerWidth() const {
    return contentsRect().width() * double{twipsPerPixel};
}

double PictureBox::innerHeight() const {
    return contentsRect().height() * double{twipsPerPixel};
}

double PictureBox::outerWidth() const {
    return width() * double{twipsPerPixel};
}

double PictureBox::outerHeight() const {
    return height() * double{twipsPerPixel};
}

void PictureBox::clear() {
    endPainting();
    fitSurface();
    m_surface.fill(backColour());
    changed();
}

void PictureBox::fillBox(double x1, double y1, double x2, double y2, Colour colour) {
    // Corners fall on whole device pixels, so that neighbouring bars neither overlap nor blur.
    const double ratio = devicePixelRatioF();
    const auto snap = [ratio](double twips) { return std::round(toPixels(twips) * ratio) / ratio; };
    const QPointF corner(snap(x1), snap(y1));
    const QPointF opposite(snap(x2), snap(y2));
    painter().fillRect(QRectF(corner, opposite).normalized(), toQColor(colour));
    changed();
}

void PictureBox::drawLine(double x1, double y1, double x2, double y2, Colour colour) {
    painter().setPen(toQColor(colour));
    painter().drawLine(QPointF(toPixels(x1), toPixels(y1)), QPointF(toPixels(x2), toPixels(y2)));
    changed();
}

void PictureBox::drawText(double x, double y, std::string_view text) {
    painter().setPen(textColour());
    painter().setFont(drawingFont());
    painter().drawText(QPointF(toPixels(x), toPixels(y) + metrics().ascent()), toQString(text));
    changed();
}

double PictureBox::textWidth(std::string_view text) const {
    return metrics().horizontalAdvance(toQString(text)) * twipsPerPixel;
}

double PictureBox::textHeight(std::string_view /*text*/) const {
    return metrics().height() * twipsPerPixel;
}

void PictureBox::setFontSize(double points) {
    m_points = std::max(points, 1.0);
}

void PictureBox::setTextColour(Colour colour) {
    m_text = toQColor(colour);
}

void PictureBox::setBackColour(Colour colour) {
    m_back = toQColor(colour);
}

void PictureBox::useSystemColours() {
    m_back.reset();
    m_text.reset();
    clear();
}

void PictureBox::setPicture(const QPixmap& picture) {
    m_picture = picture;
    update();
}

QPixmap PictureBox::surface() {
    endPainting();
    fitSurface();
    return m_surface;
}

void PictureBox::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    endPainting();
    fitSurface();
    m_updatePending = false;
    QPainter screen(this);
    const QRect inner = contentsRect();
    if (m_picture.isNull()) {
        screen.drawPixmap(inner.topLeft(), m_surface);
    } else {
        paintPicture(screen, inner);
    }
    if (hasFocus()) {
        constexpr int width = 2;
        screen.setPen(QPen(palette().color(QPalette::Highlight), width));
        screen.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

void PictureBox::paintPicture(QPainter& screen, const QRect& inner) const {
    const QSize size = m_picture.deviceIndependentSize().toSize().scaled(inner.size(), Qt::KeepAspectRatio);
    QRect place(QPoint(0, 0), size);
    place.moveCenter(inner.center());
    screen.setRenderHint(QPainter::SmoothPixmapTransform);
    screen.drawPixmap(place, m_picture);
}

void PictureBox::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    fitSurface();
    Q_EMIT resized();
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    event->accept(); // so that the release comes here as well
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        Q_EMIT clicked();
    }
}

void PictureBox::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT clicked();
        break;
    default:
        QFrame::keyPressEvent(event);
    }
}

QFont PictureBox::drawingFont() const {
    QFont result = font();
    if (m_points > 0.0) {
        result.setPointSizeF(m_points);
    }
    return result;
}

QFontMetricsF PictureBox::metrics() const {
    // Measured for the surface that is drawn on; before there is one, for the widget.
    return {drawingFont(), m_surface.isNull() ? static_cast<const QPaintDevice*>(this) : &m_surface};
}

QColor PictureBox::backColour() const {
    return m_back.value_or(palette().color(QPalette::Window));
}

QColor PictureBox::textColour() const {
    return m_text.value_or(palette().color(QPalette::ButtonText));
}

void PictureBox::fitSurface() {
    const double ratio = devicePixelRatioF();
    const QSize inner = contentsRect().size().expandedTo(QSize(1, 1));
    const QSize wanted(qCeil(inner.width() * ratio), qCeil(inner.height() * ratio));
    if (m_surface.size() == wanted && qFuzzyCompare(m_surface.devicePixelRatio(), ratio)) {
        return;
    }
    endPainting();
    QPixmap grown(wanted);
    grown.setDevicePixelRatio(ratio);
    grown.fill(backColour());
    if (!m_surface.isNull()) {
        QPainter(&grown).drawPixmap(0, 0, m_surface);
    }
    m_surface = grown;
}

QPainter& PictureBox::painter() {
    fitSurface();
    if (!m_painter) {
        m_painter.emplace(&m_surface);
    }
    return *m_painter;
}

void PictureBox::endPainting() {
    m_painter.reset();
}

void PictureBox::changed() {
    if (!m_updatePending) {
        m_updatePending = true;
        update();
    }
}

} // namespace vantor
