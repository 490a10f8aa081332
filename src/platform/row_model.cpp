// Platform: the Qt side of the program.
// The flat model behind list and combo boxes: rows of text and item data, converted for Qt only when asked.
#include "platform/row_model.h"

#include "platform/code_page.h"

#include <algorithm>
#include <utility>

namespace vantor {

void RowModel::setRows(ListRows rows) {
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

void RowModel::append(ListRow row) {
    beginInsertRows({}, count(), count());
    m_rows.push_back(std::move(row));
    endInsertRows();
}

void RowModel::remove(int row) {
    if (holds(row)) {
        beginRemoveRows({}, row, row);
        m_rows.erase(m_rows.begin() + row);
        endRemoveRows();
    }
}

void RowModel::setText(int row, std::string_view text) {
    if (holds(row)) {
        at(row).text = text;
        tellChanged(row);
    }
}

std::string_view RowModel::text(int row) const noexcept {
    return holds(row) ? std::string_view(at(row).text) : std::string_view();
}

std::int32_t RowModel::itemData32(int row) const noexcept {
    return holds(row) ? at(row).itemData : 0;
}

int RowModel::find(std::string_view text) const noexcept {
    const auto found = std::ranges::find(m_rows, text, &ListRow::text);
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int RowModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !holds(index.row())) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return toQString(at(index.row()).text);
    case Qt::UserRole:
        return at(index.row()).itemData;
    default:
        return {};
    }
}

void RowModel::tellChanged(int row) {
    Q_EMIT dataChanged(index(row), index(row));
}

} // namespace vantor
