#include "shell/path_label.h"

#include <QPainter>
#include <QStyle>

namespace vantor {

namespace {
constexpr int usualCharacters = 76;
constexpr int fewestCharacters = 24;
} // namespace

PathLabel::PathLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void PathLabel::setPath(const QString& path) {
    setText(path);
    // A tooltip is read as markup where it looks like it.
    setToolTip(Qt::mightBeRichText(path) ? path.toHtmlEscaped() : path);
}

QString PathLabel::shownText() const {
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, textRect().width());
}

QSize PathLabel::sizeHint() const {
    return sizeForCharacters(usualCharacters);
}

QSize PathLabel::minimumSizeHint() const {
    return sizeForCharacters(fewestCharacters);
}

void PathLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawFrame(&painter);
    const Qt::Alignment place = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter;
    const int flags = static_cast<int>(place.toInt()) | Qt::TextSingleLine;
    style()->drawItemText(&painter, textRect(), flags, palette(), isEnabled(), shownText(), foregroundRole());
}

QRect PathLabel::textRect() const {
    const int space = fontMetrics().horizontalAdvance(QLatin1Char(' '));
    return contentsRect().adjusted(space, 0, -space, 0);
}

QSize PathLabel::sizeForCharacters(int characters) const {
    const QFontMetrics metrics = fontMetrics();
    const int frame = 2 * frameWidth();
    return {(characters + 2) * metrics.averageCharWidth() + frame, metrics.height() + metrics.height() / 3 + frame};
}

} // namespace vantor
