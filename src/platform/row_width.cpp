// Platform: the Qt side of the program.
// How the rows of a list look: as wide as the widest, and selected ones in colours that can be seen.
#include "platform/row_width.h"

#include "platform/code_page.h"
#include "platform/colours.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <array>
#include <cstddef>

namespace vantor {

int widestRow(const RowModel& model, const QFontMetrics& metrics) {
    std::array<int, 256> widths{};
    for (std::size_t byte = 0; byte < widths.size(); ++byte) {
        const char c = static_cast<char>(byte);
        widths[byte] = metrics.horizontalAdvance(toQString({&c, 1}));
    }
    int widest = 0;
    for (const ListRow& row : model.rows()) {
        int width = 0;
        for (const char c : row.text) {
            width += widths[static_cast<unsigned char>(c)];
        }
        widest = std::max(widest, width);
    }
    return widest;
}

RowDelegate::RowDelegate(const RowModel& model, QObject* parent) : QStyledItemDelegate(parent), m_model(model) {}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem row = option;
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    if (selected && enabled) {
        const bool focused = option.widget != nullptr && option.widget->hasFocus();
        const SelectionColours colours = selectionColours(option.palette, focused);
        painter->fillRect(option.rect, colours.background);
        row.palette.setColor(QPalette::Text, colours.text);
        row.state &= ~QStyle::State_MouseOver;
    }
    row.state &= ~QStyle::State_Selected;
    row.state &= ~QStyle::State_HasFocus;
    QStyledItemDelegate::paint(painter, row, index);
    if (selected && !enabled) {
        // A frame: on the greyed background of styles its greyed text could not be read.
        painter->setPen(row.palette.color(QPalette::Disabled, QPalette::Text));
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(QPen(row.palette.color(QPalette::Text), 1, Qt::DotLine));
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    const QStyle* style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + 1;
    size.setWidth(std::max(size.width(), widestRow(m_model, option.fontMetrics) + 2 * margin));
    return size;
}

} // namespace vantor
