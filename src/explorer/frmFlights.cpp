#include "explorer/frmFlights.h"

#include "explorer/leg_export.h"
#include "foundation/busy_pointer.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/native_path.h"
#include "foundation/path_text.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "platform/file_dialogs.h"
#include "ui_frmFlights.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLocale>
#include <QScrollBar>
#include <QShortcut>

#include <algorithm>
#include <array>
#include <utility>

namespace vantor {

namespace {

constexpr std::size_t sortDepth = 2; // columns that an order remembers
constexpr int mostCopied = 100000;   // rows on the clipboard
// Widths of the columns in characters.
constexpr std::array<int, legColumns> columnWidths{34, 10, 8, 7, 7, 10, 8, 12, 7, 7, 8, 8, 7, 22};

constexpr StandardTrap trap{"flights", "frmFlights"};

} // namespace

frmFlights::frmFlights(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::frmFlights>()) {
    m_ui->setupUi(this);
    setFocusProxy(m_ui->tblFlights);
    QTableView& table = *m_ui->tblFlights;
    table.setModel(&m_model);
    // A fixed height spares a measuring of a million rows.
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 6);
    QHeaderView& header = *table.horizontalHeader();
    header.setSectionsClickable(true);
    header.setSectionsMovable(true);
    header.setContextMenuPolicy(Qt::CustomContextMenu);
    layOutColumns();
    connect(&header, &QHeaderView::sectionClicked, this,
            [this](int section) { sortBy(static_cast<LegColumn>(section)); });
    connect(&header, &QWidget::customContextMenuRequested, this,
            [this, &header](const QPoint& at) { m_columns.popup(header.mapToGlobal(at)); });
    connect(m_ui->chkFold, &QCheckBox::toggled, this, [this] {
        dropOrder();
        m_current =
            legAt(m_current).recnum == 0 ? 0 : legNumber({legAt(m_current).recnum, kind() == RowKind::Legs ? 1 : 0});
        Q_EMIT listingWanted();
    });
    makeColumnMenu();
    connectKeys();
    enableButtons();
}

frmFlights::~frmFlights() = default;

void frmFlights::connectKeys() {
    QTableView& table = *m_ui->tblFlights;
    const auto key = [&](const QKeySequence& keys, auto&& handler) {
        auto* const shortcut = new QShortcut(keys, &table, nullptr, nullptr, Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, handler);
    };
    key(Qt::Key_Return, [this] { edit(); });
    key(Qt::Key_Enter, [this] { edit(); });
    key(QKeySequence::Copy, [this] { copyText(); });
    key(Qt::Key_Delete, [this] { m_ui->cmdDelete->click(); });
    key(Qt::SHIFT | Qt::Key_F10, [this, &table] { offerMenu(table.visualRect(table.currentIndex()).bottomLeft()); });
    table.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&table, &QWidget::customContextMenuRequested, this, [this](const QPoint& place) { offerMenu(place); });
    connect(&table, &QTableView::doubleClicked, this, [this] { edit(); });
    connect(m_ui->cmdEdit, &QPushButton::clicked, this, [this] { edit(); });
    connect(m_ui->cmdDelete, &QPushButton::clicked, this, [this] { m_commands.remove(selectedLegs()); });
    connect(m_ui->cmdSwap, &QPushButton::clicked, this, [this] { m_commands.swap(selectedLegs()); });
    connect(m_ui->cmdCopy, &QPushButton::clicked, this, [this] { m_commands.copy(selectedLegs()); });
    connect(m_ui->cmdCopyText, &QPushButton::clicked, this, [this] { copyText(); });
    connect(m_ui->cmdExport, &QPushButton::clicked, this, [this] { exportRows(); });
    connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { enableButtons(); });
    connect(table.selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex& current) {
        if (current.isValid()) {
            m_current = m_model.number(current.row());
        }
    });
}

void frmFlights::layOutColumns() {
    QHeaderView& header = *m_ui->tblFlights->horizontalHeader();
    const int character = m_ui->tblFlights->fontMetrics().averageCharWidth();
    for (int column = 0; column < header.count(); ++column) {
        header.moveSection(header.visualIndex(column), column);
        header.showSection(column);
        header.resizeSection(column, columnWidths.at(static_cast<std::size_t>(column)) * character + 12);
    }
}

void frmFlights::makeColumnMenu() {
    QMenu* const sort = m_columns.addMenu(tr("&Sort by"));
    m_columns.addSeparator();
    for (std::size_t i = 0; i < legColumns; ++i) {
        const auto column = static_cast<LegColumn>(i);
        const QString title = toQString(columnTitle(column));
        connect(sort->addAction(title), &QAction::triggered, this, [this, column] { sortBy(column); });
        QAction* const shown = m_columns.addAction(title);
        shown->setCheckable(true);
        connect(&m_columns, &QMenu::aboutToShow, shown, [this, shown, i] {
            const bool on = !m_ui->tblFlights->isColumnHidden(static_cast<int>(i));
            shown->setChecked(on);
            shown->setEnabled(!on || shownColumns().size() > 1); // the last one stays
        });
        connect(shown, &QAction::triggered, this,
                [this, i](bool on) { m_ui->tblFlights->setColumnHidden(static_cast<int>(i), !on); });
    }
    m_columns.addSeparator();
    connect(m_columns.addAction(tr("&As at first")), &QAction::triggered, this, [this] { layOutColumns(); });
    connect(sort->addAction(tr("As &loaded")), &QAction::triggered, this, [this] {
        m_sort.clear();
        dropOrder();
        showSortMark();
        Q_EMIT listingWanted();
    });
    connect(m_ui->cmdColumns, &QPushButton::clicked, this,
            [this] { m_columns.popup(m_ui->cmdColumns->mapToGlobal(QPoint(0, m_ui->cmdColumns->height()))); });
}

void frmFlights::offerMenu(const QPoint& place) {
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("contextMenu"));
    for (QPushButton* const button :
         {m_ui->cmdEdit, m_ui->cmdDelete, m_ui->cmdSwap, m_ui->cmdCopy, m_ui->cmdCopyText}) {
        menu.addAction(button->text(), button, &QPushButton::click)->setEnabled(button->isEnabled());
    }
    menu.addSeparator();
    for (const std::string& terms : termsOf(m_model.number(m_ui->tblFlights->currentIndex().row()))) {
        const QString shown = toQString(terms);
        menu.addAction(tr("Only %1").arg(shown).replace(u'&', QStringLiteral("&&")), this,
                       [this, shown] { Q_EMIT filterWanted(shown); });
    }
    menu.exec(m_ui->tblFlights->viewport()->mapToGlobal(place));
}

void frmFlights::setCommands(ExplorerCommands commands) {
    m_commands = std::move(commands);
    enableButtons();
}

RowKind frmFlights::kind() const {
    return m_ui->chkFold->isChecked() ? RowKind::Schedules : RowKind::Legs;
}

const std::vector<LegNumber>* frmFlights::order() {
    if (m_sort.empty()) {
        return nullptr;
    }
    if (!m_order) {
        const BusyPointer busy{trap}; // a million rows take a moment
        m_order.emplace();
        trap.set(*m_order, sortedRows, kind(), m_sort);
    }
    return &*m_order;
}

void frmFlights::dropOrder() {
    m_order.reset();
}

// The same column once more turns the order round.
void frmFlights::sortBy(LegColumn column) {
    const bool again = !m_sort.empty() && m_sort.front().column == column;
    const bool descending = again && !m_sort.front().descending;
    std::erase_if(m_sort, [&](const SortKey& key) { return key.column == column; });
    m_sort.insert(m_sort.begin(), {column, descending});
    m_sort.resize(std::min(m_sort.size(), sortDepth));
    dropOrder();
    showSortMark();
    Q_EMIT listingWanted();
}

void frmFlights::showSortMark() {
    QHeaderView& header = *m_ui->tblFlights->horizontalHeader();
    header.setSortIndicatorShown(!m_sort.empty());
    if (!m_sort.empty()) {
        header.setSortIndicator(static_cast<int>(m_sort.front().column),
                                m_sort.front().descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    }
}

void frmFlights::showRows(const std::vector<LegNumber>& rows) {
    const LegNumber wanted = m_current;
    m_rows = &rows;
    m_model.reset(rows);
    m_current = wanted;
    findCurrent(0);
    enableButtons();
    showCount(false);
}

void frmFlights::showMore(bool done) {
    const int before = m_model.rowCount();
    m_model.grow();
    findCurrent(before);
    showCount(done);
}

// The row that was current before the search began anew becomes it again, without the focus.
void frmFlights::findCurrent(int firstRow) {
    if (m_current == 0 || m_rows == nullptr || m_ui->tblFlights->currentIndex().isValid()) {
        return;
    }
    const auto found = std::find(m_rows->begin() + firstRow, m_rows->end(), m_current);
    if (found != m_rows->end()) {
        m_ui->tblFlights->selectRow(static_cast<int>(found - m_rows->begin()));
    }
}

void frmFlights::showCount(bool done) {
    const QString count = QLocale().toString(m_model.rowCount());
    const QString what = kind() == RowKind::Legs ? tr("%1 legs") : tr("%1 schedules");
    m_ui->lblCount->setText(what.arg(count) + (done ? QString() : tr(", searching...")));
}

void frmFlights::focusTable() {
    QTableView& table = *m_ui->tblFlights;
    if (!table.currentIndex().isValid() && m_model.rowCount() > 0) {
        table.selectRow(0);
    }
    table.setFocus();
}

void frmFlights::enableButtons() {
    const bool any = m_ui->tblFlights->selectionModel()->hasSelection();
    m_ui->cmdEdit->setEnabled(any && m_commands.edit);
    m_ui->cmdDelete->setEnabled(any && m_commands.remove);
    m_ui->cmdSwap->setEnabled(any && m_commands.swap);
    m_ui->cmdCopy->setEnabled(any && m_commands.copy);
    m_ui->cmdCopyText->setEnabled(any);
}

std::vector<LegNumber> frmFlights::selectedRows() const {
    // Ranges, not one index for each cell of a million rows.
    std::vector<std::pair<int, int>> ranges;
    for (const QItemSelectionRange& range : m_ui->tblFlights->selectionModel()->selection()) {
        ranges.emplace_back(range.top(), range.bottom());
    }
    std::ranges::sort(ranges);
    std::vector<LegNumber> rows;
    for (const auto& [top, bottom] : ranges) {
        for (int row = top; row <= bottom; ++row) {
            rows.push_back(m_model.number(row));
        }
    }
    return rows;
}

std::vector<LegId> frmFlights::selectedLegs() const {
    const std::vector<LegNumber> rows = selectedRows();
    std::vector<LegId> legs(rows.size());
    std::ranges::transform(rows, legs.begin(), legAt);
    return legs;
}

std::vector<LegColumn> frmFlights::shownColumns() const {
    const QHeaderView& header = *m_ui->tblFlights->horizontalHeader();
    std::vector<LegColumn> columns;
    for (int place = 0; place < header.count(); ++place) {
        if (!header.isSectionHidden(header.logicalIndex(place))) {
            columns.push_back(static_cast<LegColumn>(header.logicalIndex(place)));
        }
    }
    return columns;
}

void frmFlights::edit() {
    const LegNumber row = m_model.number(m_ui->tblFlights->currentIndex().row());
    if (row != 0 && m_commands.edit) {
        m_commands.edit(legAt(row));
    }
}

void frmFlights::copyText() {
    std::vector<LegNumber> rows = selectedRows();
    rows.resize(std::min<std::size_t>(rows.size(), mostCopied));
    QGuiApplication::clipboard()->setText(toQString(rowsAsText(rows, shownColumns())));
}

void frmFlights::exportRows() {
    const std::string file = askforSaveFilename("Save what is listed as CSV",
                                                addbackslash(programFolder()) + "flights.csv", "CSV file (*.csv)");
    if (!file.empty()) {
        trap(&frmFlights::writeRows, this, file);
    }
}

void frmFlights::writeRows(const std::string& path) {
    const std::vector<LegNumber> rows = m_rows == nullptr ? std::vector<LegNumber>() : *m_rows;
    m_ui->prgExport->setRange(0, static_cast<int>(rows.size()));
    m_ui->prgExport->show();
    setEnabled(false);
    try {
        exportCsv(path, rows, shownColumns(), [this](std::size_t at) {
            m_ui->prgExport->setValue(static_cast<int>(at));
            host().pumpEvents(Pump::PaintAndTimers);
            return true;
        });
        m_ui->lblCount->setText(tr("%1 rows saved to %2").arg(QLocale().toString(rows.size()), toQString(path)));
    } catch (const Error& error) {
        host().message("The list could not be saved to " + path + ": " + error.description());
    }
    setEnabled(true);
    m_ui->prgExport->hide();
}

} // namespace vantor
