// Platform: the Qt side of the program.
// The combo box of the forms: flat rows with item data, typing that completes, and clicks by the user or by code.
#include "platform/combo_box.h"

#include "platform/code_page.h"
#include "platform/row_width.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFontMetrics>
#include <QLineEdit>
#include <QListView>
#include <QScreen>
#include <QStyle>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace vantor {

namespace {

constexpr int visibleCompletions = 12;
constexpr int visibleRows = 20;
constexpr int minimumLetters = 10;

void makeUniform(QAbstractItemView* view) {
    if (auto* list = qobject_cast<QListView*>(view)) {
        list->setUniformItemSizes(true);
    }
}

} // namespace

ComboBox::ComboBox(QWidget* parent)
    : QComboBox(parent), m_rows(new RowModel(this)), m_completer(new QCompleter(m_rows, this)) {
    setModel(m_rows);
    setInsertPolicy(NoInsert);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(minimumLetters);
    setMaxVisibleItems(visibleRows);
    // Some styles would spread the list of nine thousand airports over the whole height of the screen.
    setStyleSheet(QStringLiteral("combobox-popup: 0"));
    setFocusPolicy(Qt::StrongFocus);
    makeUniform(view());

    m_completer->setCompletionMode(QCompleter::PopupCompletion);
    m_completer->setFilterMode(Qt::MatchContains);
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_completer->setMaxVisibleItems(visibleCompletions);
    makeUniform(m_completer->popup());

    connect(this, &QComboBox::activated, this, &ComboBox::rowClicked);
}

void ComboBox::setEditable(bool editable) {
    if (editable == isEditable()) {
        return;
    }
    QComboBox::setEditable(editable);
    if (!editable) {
        return;
    }
    // The base picks the row of a typed text when the line edit is left, and of a completed one at once. Here both are
    // typing, so it hears of neither: the completer stands on the line edit alone.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    setCompleter(nullptr);
    m_completer->setWidget(lineEdit());
    lineEdit()->setCompleter(m_completer);
    // The list of completions is as wide as its rows, however narrow the box; this comes before the list shows.
    connect(lineEdit(), &QLineEdit::textEdited, m_completer,
            [this] { m_completer->popup()->setMinimumWidth(popupWidth()); });
}

void ComboBox::clear() {
    setRows({});
}

void ComboBox::addRow(std::string_view text, std::int32_t itemData) {
    const int row = QComboBox::currentIndex();
    const QString shown = isEditable() ? lineEdit()->text() : QString();
    m_rows->append({std::string(text), itemData});
    if (QComboBox::currentIndex() != row) {
        place(row, shown); // the base makes the first row of an empty box current by itself
    }
}

void ComboBox::setRows(ListRows rows) {
    m_rows->setRows(std::move(rows));
    place(-1, {});
}

void ComboBox::setRowText(int row, std::string_view text) {
    if (!m_rows->holds(row)) {
        return;
    }
    const bool follows = !isEditable() || currentRow() == row;
    const QString shown = isEditable() ? lineEdit()->text() : QString();
    m_rows->setText(row, text);
    if (!follows) {
        place(QComboBox::currentIndex(), shown);
    }
}

int ComboBox::rowCount() const {
    return m_rows->count();
}

std::string ComboBox::rowText(int row) const {
    return std::string(m_rows->text(row));
}

std::int32_t ComboBox::itemData(int row) const {
    return m_rows->itemData32(row);
}

int ComboBox::currentRow() const {
    const int row = QComboBox::currentIndex();
    if (row >= 0 && isEditable() && lineEdit()->text() != itemText(row)) {
        return -1;
    }
    return row;
}

void ComboBox::setCurrentRow(int row) {
    if (row == -1) {
        place(-1, {});
    } else if (m_rows->holds(row) && row != currentRow()) {
        place(row, toQString(m_rows->text(row)));
        Q_EMIT rowClicked();
    }
}

std::string ComboBox::text() const {
    const int row = currentRow();
    return row < 0 && isEditable() ? fromQString(lineEdit()->text()) : rowText(row);
}

void ComboBox::setText(std::string_view text) {
    const int current = currentRow();
    const bool same = current >= 0 && m_rows->text(current) == text;
    const int row = same ? current : m_rows->find(text);
    if (row >= 0 || isEditable()) {
        place(row, toQString(text));
    }
}

void ComboBox::place(int row, const QString& text) {
    QComboBox::setCurrentIndex(row);
    if (isEditable() && lineEdit()->text() != text) {
        lineEdit()->setText(text);
    }
    if (isEditable()) {
        lineEdit()->setCursorPosition(0); // the code at the front is what must show in a narrow box
    }
}

int ComboBox::popupWidth() const {
    const QStyle* looks = style();
    const int margins = 2 * (looks->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1) + 2 * view()->frameWidth();
    const int bar = looks->pixelMetric(QStyle::PM_ScrollBarExtent);
    const int widest = widestRow(*m_rows, view()->fontMetrics()) + margins + bar;
    const int most = screen() != nullptr ? screen()->availableGeometry().width() * 2 / 3 : widest;
    return std::clamp(widest, 0, std::max(most, width()));
}

void ComboBox::showPopup() {
    view()->setMinimumWidth(popupWidth());
    QComboBox::showPopup();
}

void ComboBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore(); // scrolling past the box must not change what it shows
    }
}

} // namespace vantor
