#include "explorer/frmChecksModel.h"

#include "platform/code_page.h"

#include <utility>

namespace vantor {

void ChecksModel::show(CheckKind kind, Checks::Findings findings) {
    beginResetModel();
    m_kind = kind;
    m_findings = std::move(findings);
    endResetModel();
}

LegNumber ChecksModel::place(int row) const {
    return row >= 0 && row < rowCount() ? m_findings[static_cast<std::size_t>(row)].where : 0;
}

int ChecksModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_findings.size());
}

int ChecksModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 4;
}

QVariant ChecksModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    const CheckFinding& finding = m_findings[static_cast<std::size_t>(index.row())];
    switch (index.column()) {
    case 0:
        return finding.where == 0 ? QVariant() : QVariant(legAt(finding.where).recnum);
    case 1:
        return toQString(findingSchedule(finding.where));
    case 2:
        return toQString(findingLeg(finding.where));
    default:
        return toQString(checkReason(m_kind, finding));
    }
}

QVariant ChecksModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case 0:
        return tr("No.");
    case 1:
        return tr("Schedule");
    case 2:
        return tr("Leg");
    default:
        return tr("Reason");
    }
}

} // namespace vantor
