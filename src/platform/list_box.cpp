// Platform: the Qt side of the program.
// The list box of the forms: flat rows with item data, extended selection, and clicks by the user or by code.
#include "platform/list_box.h"

#include "platform/code_page.h"
#include "platform/row_width.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace vantor {

ListBox::ListBox(QWidget* parent) : QListView(parent), m_rows(new RowModel(this)) {
    setModel(m_rows);
    setItemDelegate(new RowDelegate(*m_rows, this));
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ExtendedSelection);
    setTextElideMode(Qt::ElideNone);
}

void ListBox::clear() {
    setRows({});
}

void ListBox::addRow(std::string_view text, std::int32_t itemData) {
    m_rows->append({std::string(text), itemData});
}

void ListBox::setRows(ListRows rows) {
    m_rows->setRows(std::move(rows));
    scrollToTop();
}

void ListBox::removeRow(int row) {
    const bool wasCurrent = row >= 0 && row == currentRow();
    m_rows->remove(row);
    if (wasCurrent) {
        // Qt hands the place of a removed row to its neighbour; a command must not act on a row that nobody picked.
        setCurrentRow(-1);
    }
}

int ListBox::rowCount() const {
    return m_rows->count();
}

std::string ListBox::rowText(int row) const {
    return std::string(m_rows->text(row));
}

std::int32_t ListBox::itemData(int row) const {
    return m_rows->itemData32(row);
}

int ListBox::currentRow() const {
    return currentIndex().row();
}

void ListBox::setCurrentRow(int row) {
    const bool single = selectionMode() != ExtendedSelection && selectionMode() != MultiSelection;
    if (row == -1) {
        selectionModel()->clearCurrentIndex();
        if (single) {
            clearSelection();
        }
        return;
    }
    if (!m_rows->holds(row)) {
        return;
    }
    const bool same = row == currentRow();
    // The row is highlighted as well: what is highlighted is what commands act on.
    selectionModel()->setCurrentIndex(indexOf(row),
                                      single ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::Select);
    scrollTo(indexOf(row));
    if (!same) {
        Q_EMIT rowClicked();
    }
}

bool ListBox::isRowSelected(int row) const {
    return m_rows->holds(row) && selectionModel()->isSelected(indexOf(row));
}

int ListBox::selectedRowCount() const {
    int count = 0;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange& range : selection) {
        count += range.height();
    }
    return count;
}

void ListBox::selectRow(int row) {
    if (!m_rows->holds(row)) {
        return;
    }
    selectionModel()->setCurrentIndex(indexOf(row), QItemSelectionModel::ClearAndSelect);
    scrollTo(indexOf(row));
    Q_EMIT rowClicked();
}

void ListBox::selectRows(const std::vector<int>& rows) {
    if (rows.empty() || !m_rows->holds(rows.front()) || !m_rows->holds(rows.back())) {
        return;
    }
    QItemSelection selection;
    for (std::size_t from = 0, to = 0; from < rows.size(); from = to) {
        for (to = from + 1; to < rows.size() && rows[to] == rows[to - 1] + 1; ++to) {
        }
        selection.append(QItemSelectionRange(indexOf(rows[from]), indexOf(rows[to - 1])));
    }
    selectionModel()->setCurrentIndex(indexOf(rows.front()), QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    scrollTo(indexOf(rows.front()));
    Q_EMIT rowClicked();
}

void ListBox::copySelectedRows() const {
    QStringList lines;
    for (int row = 0; row < rowCount(); ++row) {
        if (isRowSelected(row)) {
            lines += toQString(rowText(row));
        }
    }
    if (!lines.isEmpty()) {
        QGuiApplication::clipboard()->setText(lines.join(u'\n'));
    }
}

bool ListBox::event(QEvent* event) {
    const bool handled = QListView::event(event);
    if (event->type() == QEvent::Paint && hasFocus()) {
        // A list without a current row, or scrolled away from it, shows all the same where a key will go.
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    return handled;
}

// Only what Qt itself does with a user's event is watched; what a handler of the click changes by code is not.
template <class Handling>
void ListBox::watch(Handling&& handling) {
    m_watching = true;
    std::forward<Handling>(handling)();
    m_watching = false;
}

void ListBox::mousePressEvent(QMouseEvent* event) {
    m_changed = false;
    const bool onRow = indexAt(event->position().toPoint()).isValid();
    watch([&] { QListView::mousePressEvent(event); });
    if (std::exchange(m_changed, false) || (onRow && event->button() == Qt::LeftButton)) {
        Q_EMIT rowClicked();
    }
}

void ListBox::mouseMoveEvent(QMouseEvent* event) {
    watch([&] { QListView::mouseMoveEvent(event); });
}

void ListBox::mouseReleaseEvent(QMouseEvent* event) {
    watch([&] { QListView::mouseReleaseEvent(event); });
    // Rows selected by dragging over them count once, when the button is released.
    if (std::exchange(m_changed, false)) {
        Q_EMIT rowClicked();
    }
}

void ListBox::mouseDoubleClickEvent(QMouseEvent* event) {
    // Qt treats a second press on another row as a press; only a true double click keeps the current row.
    const QModelIndex before = currentIndex();
    QListView::mouseDoubleClickEvent(event);
    const QModelIndex hit = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && hit.isValid() && hit == before) {
        Q_EMIT rowActivated();
    }
}

void ListBox::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && currentRow() >= 0 && isSignalConnected(QMetaMethod::fromSignal(&ListBox::rowActivated))) {
        // Taken here: it would press the window's default button as well.
        event->accept();
        Q_EMIT rowActivated();
        return;
    }
    if (event->matches(QKeySequence::Copy)) {
        copySelectedRows(); // Qt would copy the current row alone
        event->accept();
        return;
    }
    m_changed = false;
    watch([&] { QListView::keyPressEvent(event); });
    if (std::exchange(m_changed, false)) {
        Q_EMIT rowClicked();
    }
}

void ListBox::focusInEvent(QFocusEvent* event) {
    const bool hadCurrent = currentIndex().isValid();
    QListView::focusInEvent(event);
    update(); // the frame
    if (!hadCurrent && currentIndex().isValid()) {
        // Qt makes the first row current when the focus comes in by key; nobody picked it.
        selectionModel()->clearCurrentIndex();
    }
}

void ListBox::focusOutEvent(QFocusEvent* event) {
    QListView::focusOutEvent(event);
    update(); // the frame
}

void ListBox::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    m_changed = m_changed || m_watching;
}

void ListBox::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QListView::selectionChanged(selected, deselected);
    m_changed = m_changed || m_watching;
}

QItemSelectionModel::SelectionFlags ListBox::selectionCommand(const QModelIndex& index, const QEvent* event) const {
    const bool press = event != nullptr && event->type() == QEvent::MouseButtonPress;
    const bool release = event != nullptr && event->type() == QEvent::MouseButtonRelease;
    if ((press || release) && !index.isValid()) {
        return QItemSelectionModel::NoUpdate; // a click below the last row picks nothing and drops nothing
    }
    if (press && selectionMode() == ExtendedSelection) {
        const auto* mouse = static_cast<const QMouseEvent*>(event);
        if (mouse->button() == Qt::LeftButton && mouse->modifiers() == Qt::NoModifier) {
            // Qt would keep several selected rows until the release, in case a drag begins; rows are never dragged.
            return QItemSelectionModel::ClearAndSelect;
        }
    }
    return QListView::selectionCommand(index, event);
}

} // namespace vantor
