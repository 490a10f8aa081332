// Platform: the Qt side of the program.
// How the rows of a list look: as wide as the widest, and selected ones in colours that can be seen.
#pragma once

#include "platform/row_model.h"

#include <QStyledItemDelegate>

class QFontMetrics;

namespace vantor {

/// Width in pixels of the widest row. It adds up the widths of single characters, which is exact but for kerning.
[[nodiscard]] int widestRow(const RowModel& model, const QFontMetrics& metrics);

/// Gives every row the width of the widest, so that a list with uniform rows still scrolls sideways to its longest
/// text. Paints selected rows itself: some styles hardly show them, and most show them alike whether a key would reach
/// the list or not.
class RowDelegate : public QStyledItemDelegate {
    Q_OBJECT
  public:
    RowDelegate(const RowModel& model, QObject* parent);
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  private:
    const RowModel& m_model;
};

} // namespace vantor
