// Platform: the Qt side of the program.
// The combo box of the forms: flat rows with item data, typing that completes, and clicks by the user or by code.
#include "platform/combo_box.h"

#include "platform/code_page.h"
#include "platform/colours.h"
#include "platform/row_width.h"

#include <QAbstractItemView>
#include <QAbstractProxyModel>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCompleter>
#include <QFontMetrics>
#include <QLabel>
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

// Hands a press on to what stands below the list that it closed, as a whole click: the toolkit drops the release that
// belongs to it. Posted, so that the list is out of the way when the click takes effect.
void passOn(const QMouseEvent& press) {
    QWidget* const below = QApplication::widgetAt(press.globalPosition().toPoint());
    const QWidget* const modal = QApplication::activeModalWidget();
    if (below == nullptr || (modal != nullptr && below->window() != modal)) {
        return;
    }
    QWidget* taker = below;
    while (!taker->isWindow() && (taker->focusPolicy() & Qt::ClickFocus) == 0) {
        taker = taker->parentWidget();
    }
    taker->setFocus(Qt::MouseFocusReason); // which comes of the system's own events alone
    const QPointF place = below->mapFromGlobal(press.globalPosition());
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? press.button() : Qt::NoButton;
        QCoreApplication::postEvent(
            below, new QMouseEvent(type, place, press.globalPosition(), press.button(), held, press.modifiers()));
    }
    if (press.button() == Qt::RightButton) { // this too comes of the system's own events alone
        QCoreApplication::postEvent(below, new QContextMenuEvent(QContextMenuEvent::Mouse, place.toPoint(),
                                                                 press.globalPosition().toPoint(), press.modifiers()));
    }
}

auto labelsOf(QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget)->relations(QAccessible::Label);
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
    QAbstractItemView* const completions = m_completer->popup();
    makeUniform(completions);
    completions->setAttribute(Qt::WA_NoMouseReplay); // passed on here, which works on every system
    completions->installEventFilter(this);
    connect(m_completer, qOverload<const QModelIndex&>(&QCompleter::activated), this, &ComboBox::pickCompletion);

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
    // typing, so it hears of neither. The line edit doesn't know the completer either: it would show each completion
    // that the arrow keys pass, as if it were taken.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    setCompleter(nullptr);
    m_completer->setWidget(lineEdit());
    connect(lineEdit(), &QLineEdit::textEdited, this, &ComboBox::complete);
}

void ComboBox::complete(const QString& typed) {
    if (typed.isEmpty()) {
        m_completer->popup()->hide();
        return;
    }
    m_completer->popup()->setMinimumWidth(popupWidth()); // as wide as its rows, however narrow the box
    m_completer->setCompletionPrefix(typed);
    m_completer->complete();
}

void ComboBox::pickCompletion(const QModelIndex& completion) {
    const auto* const completions = qobject_cast<QAbstractProxyModel*>(m_completer->completionModel());
    const int row = completions->mapToSource(completion).row();
    if (m_rows->holds(row)) {
        place(row, toQString(m_rows->text(row)));
        Q_EMIT rowClicked();
    }
}

void ComboBox::setMarksTypedText() {
    m_typedMark =
        lineEdit()->addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning), QLineEdit::TrailingPosition);
    connect(lineEdit(), &QLineEdit::textChanged, this, &ComboBox::markTypedText);
    connect(this, &QComboBox::currentIndexChanged, this, &ComboBox::markTypedText);
    markTypedText();
}

void ComboBox::markTypedText() {
    const bool typed = lineEdit()->text() != itemText(QComboBox::currentIndex());
    QPalette colours; // empty: the box's own
    if (typed) {
        colours.setColor(QPalette::Text, warningColour(palette()));
    }
    lineEdit()->setPalette(colours);
    const QString hint = typed ? QStringLiteral("Pick a row of the list") : QString();
    setToolTip(hint);
    setAccessibleDescription(hint);
    m_typedMark->setVisible(typed);
    m_typedMark->setToolTip(hint);
}

bool ComboBox::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_completer->popup() && event->type() == QEvent::MouseButtonPress) {
        const auto& press = *static_cast<QMouseEvent*>(event);
        if (!m_completer->popup()->rect().contains(press.position().toPoint())) {
            m_completer->popup()->hide();
            passOn(press);
            return true;
        }
    }
    return QComboBox::eventFilter(watched, event);
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

void ComboBox::setAccessibleName(const QString& name) {
    QComboBox::setAccessibleName(name);
    // Where the system's tree has the row as the box's name, it is a label that tells what the box is.
    if (parentWidget() != nullptr && labelsOf(*this).isEmpty()) {
        auto* const label = new QLabel(name, parentWidget());
        label->setBuddy(this);
        label->hide();
    }
}

void ComboBox::showEvent(QShowEvent* event) {
    QComboBox::showEvent(event);
    if (isEditable()) { // the focus is in the line edit
        const auto labels = labelsOf(*this);
        const bool named = !accessibleName().isEmpty() || labels.isEmpty();
        lineEdit()->setAccessibleName(named ? accessibleName() : labels.constFirst().first->text(QAccessible::Name));
    }
}

void ComboBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore(); // scrolling past the box must not change what it shows
    }
}

} // namespace vantor
