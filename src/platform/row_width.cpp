// Platform: the Qt side of the program.
// How wide the widest row of a list is, found fast enough for a list of tens of thousands of rows.
#include "platform/row_width.h"

#include "platform/code_page.h"

#include <QApplication>
#include <QFontMetrics>
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

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    const QStyle* style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + 1;
    size.setWidth(std::max(size.width(), widestRow(m_model, option.fontMetrics) + 2 * margin));
    return size;
}

} // namespace vantor
