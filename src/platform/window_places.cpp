#include "platform/window_places.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHeaderView>
#include <QMessageBox>
#include <QScreen>
#include <QStyle>
#include <QWidget>

#include <optional>
#include <utility>
#include <vector>

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

constexpr int widestColumn = 5000;

struct ColumnPlace {
    int column = 0;
    int width = 0; // 0: hidden
};

// As "0:238 2:60 1:0", from the left to the right.
QString columnsText(const QHeaderView& header) {
    QStringList texts;
    for (int place = 0; place < header.count(); ++place) {
        const int column = header.logicalIndex(place);
        texts += QStringLiteral("%1:%2").arg(column).arg(header.sectionSize(column));
    }
    return texts.join(u' ');
}

// Nothing unless each column of the table stands there once, with a width that makes sense, and one can be seen.
std::optional<std::vector<ColumnPlace>> columnsOf(const QString& text, int count) {
    std::vector<ColumnPlace> columns;
    std::vector<bool> seen(static_cast<std::size_t>(count));
    bool anyShown = false;
    for (const QString& piece : text.split(u' ')) {
        bool numbered = false;
        bool sized = false;
        const ColumnPlace place{piece.section(u':', 0, 0).toInt(&numbered), piece.section(u':', 1).toInt(&sized)};
        const bool known = numbered && sized && place.column >= 0 && place.column < count;
        if (!known || place.width < 0 || place.width > widestColumn || seen[static_cast<std::size_t>(place.column)]) {
            return std::nullopt;
        }
        seen[static_cast<std::size_t>(place.column)] = true;
        anyShown = anyShown || place.width > 0;
        columns.push_back(place);
    }
    return anyShown && columns.size() == seen.size() ? std::optional(columns) : std::nullopt;
}

void restoreColumns(QHeaderView& header, const QString& text) {
    const auto columns = columnsOf(text, header.count());
    for (std::size_t place = 0; columns && place < columns->size(); ++place) {
        const auto [column, width] = (*columns)[place];
        header.moveSection(header.visualIndex(column), static_cast<int>(place));
        header.setSectionHidden(column, width == 0);
        if (width > 0) {
            header.resizeSection(column, width);
        }
    }
}

// The headers whose columns the user can move, each with the key of its table.
std::vector<std::pair<QHeaderView*, QString>> movableColumns(const QWidget& window) {
    std::vector<std::pair<QHeaderView*, QString>> headers;
    for (QHeaderView* const header : window.findChildren<QHeaderView*>()) {
        if (header->sectionsMovable()) {
            headers.emplace_back(header, nameOf(window) + u'.' + header->parentWidget()->objectName());
        }
    }
    return headers;
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
            for (const auto& [header, key] : movableColumns(window)) {
                m_file.setValue(key, columnsText(*header));
            }
        } else {
            window.restoreGeometry(m_file.value(name).toByteArray()); // a broken one changes nothing
            holdToScreen(window);
            for (const auto& [header, key] : movableColumns(window)) {
                restoreColumns(*header, m_file.value(key).toString());
            }
        }
    }
    return false;
}

} // namespace vantor
