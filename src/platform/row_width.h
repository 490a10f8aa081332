// Platform: the Qt side of the program.
// How wide the widest row of a list is, found fast enough for a list of tens of thousands of rows.
#pragma once

#include "platform/row_model.h"

#include <QStyledItemDelegate>

class QFontMetrics;

namespace vantor {

/// Width in pixels of the widest row. It adds up the widths of single characters, which is exact but for kerning.
[[nodiscard]] int widestRow(const RowModel& model, const QFontMetrics& metrics);

/// Gives every row the width of the widest, so that a list with uniform rows still scrolls sideways to its longest
/// text.
class RowDelegate : public QStyledItemDelegate {
    Q_OBJECT
  public:
    RowDelegate(const RowModel& model, QObject* parent);
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  private:
    const RowModel& m_model;
};

} // namespace vantor
