#include "platform/window_places.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMessageBox>
#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace vantor {

namespace {

bool isWatched(const QWidget& widget) {
    const Qt::WindowType type = widget.windowType();
    return widget.isWindow() && (type == Qt::Window || type == Qt::Dialog) &&
           qobject_cast<const QMessageBox*>(&widget) == nullptr;
}

// A class name as object name may carry its namespace.
QString nameOf(const QWidget& window) {
    return window.objectName().section(QStringLiteral("::"), -1);
}

void holdToScreen(QWidget& window) {
    const QStyle& looks = *window.style();
    const int side = looks.pixelMetric(QStyle::PM_MdiSubWindowFrameWidth); // the real frame comes after the window
    const QSize frame(2 * side, 2 * side + looks.pixelMetric(QStyle::PM_TitleBarHeight));
    const QSize most = window.screen()->availableSize() - frame;
    if (window.size() != window.size().boundedTo(most)) {
        window.resize(window.size().boundedTo(most));
    }
}

} // namespace

WindowPlaces::WindowPlaces(const QString& file) : m_file(file, QSettings::IniFormat) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool WindowPlaces::eventFilter(QObject* watched, QEvent* event) {
    const bool opens = event->type() == QEvent::Show;
    const bool closes = event->type() == QEvent::Hide;
    if ((opens || closes) && !event->spontaneous() && watched->isWidgetType()) {
        auto& window = *static_cast<QWidget*>(watched);
        const QString name = nameOf(window);
        if (!isWatched(window) || name.isEmpty()) {
            return false;
        }
        if (closes) {
            m_file.setValue(name, window.saveGeometry());
        } else {
            window.restoreGeometry(m_file.value(name).toByteArray()); // a broken one changes nothing
            holdToScreen(window);
        }
    }
    return false;
}

} // namespace vantor
