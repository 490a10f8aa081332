#include "explorer/frmFlightsModel.h"

#include "platform/code_page.h"

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <limits>

namespace vantor {

namespace {

int countOf(const std::vector<LegNumber>& rows) {
    return static_cast<int>(std::min<std::size_t>(rows.size(), std::numeric_limits<int>::max()));
}

bool isDeleted(LegNumber number) {
    const ScheduleRec* const schedule = scheduleOf(number);
    const LegRec* const leg = schedule == nullptr ? nullptr : legOf(*schedule, number);
    return schedule != nullptr && (schedule->deleted || (leg != nullptr && leg->deleted));
}

} // namespace

void FlightsModel::reset(const std::vector<LegNumber>& rows) {
    beginResetModel();
    m_rows = &rows;
    m_shown = countOf(rows);
    endResetModel();
}

void FlightsModel::grow() {
    if (m_rows != nullptr && countOf(*m_rows) > m_shown) {
        beginInsertRows({}, m_shown, countOf(*m_rows) - 1);
        m_shown = countOf(*m_rows);
        endInsertRows();
    }
}

LegNumber FlightsModel::number(int row) const {
    const auto at = static_cast<std::size_t>(row);
    return row >= 0 && row < m_shown && at < m_rows->size() ? (*m_rows)[at] : 0;
}

int FlightsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_shown;
}

int FlightsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(legColumns);
}

QVariant FlightsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const auto column = static_cast<LegColumn>(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return toQString(cellText(number(index.row()), column));
    case Qt::ToolTipRole:
        return toQString(cellHint(number(index.row()), column));
    case Qt::TextAlignmentRole:
        return QVariant(isNumeric(column) ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::ForegroundRole: // the status says it in words
        return isDeleted(number(index.row())) ? QVariant(QGuiApplication::palette().placeholderText()) : QVariant();
    default:
        return {};
    }
}

QVariant FlightsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= columnCount()) {
        return {};
    }
    return toQString(columnTitle(static_cast<LegColumn>(section)));
}

} // namespace vantor
