// Explorer: all flights in one table, on a world map, and checked.
// The findings of one kind as the toolkit asks for them; texts are made when they are shown.
#pragma once

#include "explorer/checks.h"

#include <QAbstractTableModel>

namespace vantor {

class ChecksModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Shows these findings of a kind.
    void show(CheckKind kind, Checks::Findings findings);
    /// The place of a row; 0 for a row that stands for none.
    [[nodiscard]] LegNumber place(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    CheckKind m_kind{};
    Checks::Findings m_findings;
};

} // namespace vantor
