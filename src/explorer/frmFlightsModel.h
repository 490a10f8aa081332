// Explorer: all flights in one table, on a world map, and checked.
// The rows of the list of flights as the toolkit asks for them: numbers are kept, texts are made when they are shown.
#pragma once

#include "explorer/leg_number.h"
#include "explorer/leg_values.h"

#include <QAbstractTableModel>

#include <vector>

namespace vantor {

/// A view over rows that belong to someone else and grow behind its back; it shows those that it was told of.
class FlightsModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Shows other rows, all that are there now.
    void reset(const std::vector<LegNumber>& rows);
    /// Shows what was put behind the rows since.
    void grow();
    /// The number of a row, 0 for none.
    [[nodiscard]] LegNumber number(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const std::vector<LegNumber>* m_rows = nullptr;
    int m_shown = 0;
};

} // namespace vantor
