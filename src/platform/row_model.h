// Platform: the Qt side of the program.
// The flat model behind list and combo boxes: rows of text and item data, converted for Qt only when asked.
#pragma once

#include "foundation/list_row.h"

#include <QAbstractListModel>

#include <cstdint>
#include <string>
#include <string_view>

namespace vantor {

/// Rows as the logic hands them out. The text stands in the display and edit roles, the item data in the user role.
class RowModel : public QAbstractListModel {
    Q_OBJECT
  public:
    explicit RowModel(QObject* parent = nullptr) : QAbstractListModel(parent) {}

    /// Replaces all rows in one reset.
    void setRows(ListRows rows);
    void append(ListRow row);
    /// Removes one row; a number outside the rows does nothing.
    void remove(int row);
    void setText(int row, std::string_view text);

    [[nodiscard]] int count() const noexcept { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] bool holds(int row) const noexcept { return row >= 0 && row < count(); }
    /// Text of a row; empty outside the rows, as the fills that read one past the last row rely on.
    [[nodiscard]] std::string_view text(int row) const noexcept;
    /// Item data of a row, 0 outside the rows.
    [[nodiscard]] std::int32_t itemData32(int row) const noexcept;
    /// The first row with exactly this text, -1 for none.
    [[nodiscard]] int find(std::string_view text) const noexcept;
    [[nodiscard]] const ListRows& rows() const noexcept { return m_rows; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  private:
    [[nodiscard]] ListRow& at(int row) { return m_rows[static_cast<std::size_t>(row)]; }
    [[nodiscard]] const ListRow& at(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
    void tellChanged(int row);

    ListRows m_rows;
};

} // namespace vantor
