#include "explorer/frmChecks.h"

#include "explorer/leg_matcher.h"
#include "explorer/leg_values.h"
#include "foundation/busy_pointer.h"
#include "foundation/disk.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/native_path.h"
#include "foundation/path_text.h"
#include "foundation/replacing_file.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "platform/file_dialogs.h"
#include "ui_frmChecks.h"

#include <QElapsedTimer>
#include <QHeaderView>
#include <QLocale>
#include <QMenu>
#include <QShortcut>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace vantor {

namespace {

constexpr int sliceMilliseconds = 15;
constexpr int numberColumn = 0;
constexpr int scheduleColumn = 1;
constexpr int legColumn = 2;
constexpr StandardTrap trap{"checks", "frmChecks"};

// Whether the filter leaves a place: a leg, or a schedule with a leg that it leaves.
bool leaves(LegMatcher& matcher, LegNumber where) {
    const ScheduleRec* const schedule = scheduleOf(where);
    if (schedule == nullptr) {
        return where == 0;
    }
    const std::int32_t recnum = legAt(where).recnum;
    if (const LegRec* const leg = legOf(*schedule, where)) {
        return matcher.matches(recnum, *schedule, *leg);
    }
    return matcher.matches(recnum, *schedule) || std::ranges::any_of(numberedLegs(*schedule), [&](const LegRec& leg) {
               return matcher.matches(recnum, *schedule, leg);
           });
}

} // namespace

frmChecks::frmChecks(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::frmChecks>()) {
    m_ui->setupUi(this);
    setFocusProxy(m_ui->lstKinds);
    QTableView& table = *m_ui->tblFindings;
    table.setModel(&m_model);
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 6);
    const int character = table.fontMetrics().averageCharWidth();
    m_ui->split->setSizes({44 * character, 80 * character});
    m_ui->split->setStretchFactor(1, 1);
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, [this] { trap(&frmChecks::goOn, this); });
    connect(m_ui->cmdCheck, &QPushButton::clicked, this, [this] { check(); });
    connect(m_ui->cmdSaveReport, &QPushButton::clicked, this, [this] { saveReport(); });
    connect(m_ui->spnTurnaround, &QSpinBox::valueChanged, this, [this] {
        if (m_checked) {
            check();
        }
    });
    connect(m_ui->lstKinds, &QListWidget::currentRowChanged, this, [this] { showKind(); });
    connect(m_ui->lstKinds, &QListWidget::itemActivated, &table, [&table] {
        table.selectRow(0);
        table.setFocus();
    });
    connect(&table, &QTableView::doubleClicked, this, [this] { edit(); });
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* const shortcut = new QShortcut(key, &table, nullptr, nullptr, Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, [this] { edit(); });
    }
    auto* const menuKey = new QShortcut(Qt::SHIFT | Qt::Key_F10, &table, nullptr, nullptr, Qt::WidgetShortcut);
    connect(menuKey, &QShortcut::activated, this,
            [this, &table] { offerMenu(table.visualRect(table.currentIndex()).bottomLeft()); });
    table.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&table, &QWidget::customContextMenuRequested, this, [this](const QPoint& place) { offerMenu(place); });
    showKinds();
    showResult();
}

frmChecks::~frmChecks() = default;

void frmChecks::setCommands(ExplorerCommands commands) {
    m_commands = std::move(commands);
}

void frmChecks::setFilter(const Filter& filter) {
    if (filter == m_filter) {
        return;
    }
    m_filter = filter;
    if (m_checked && m_checks.done()) {
        sift();
    }
}

void frmChecks::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (m_stale) {
        sift();
    }
}

void frmChecks::tablesChanged() {
    if (!m_checked) {
        return;
    }
    if (!m_checks.done()) {
        check();
    } else {
        m_old = true;
        sift();
    }
}

void frmChecks::check() {
    m_checks.start({.turnaroundMinutes = m_ui->spnTurnaround->value()});
    m_checked = true;
    m_old = false;
    m_matcher.reset();
    m_ui->cmdSaveReport->setEnabled(false);
    m_ui->prgChecks->setValue(0);
    m_ui->prgChecks->show();
    m_ui->lblResult->hide();
    m_timer.start();
}

void frmChecks::goOn() {
    if (host().pumping()) {
        return; // inside a command, which may be in the midst of changing the tables
    }
    QElapsedTimer watch;
    watch.start();
    const auto late = [&] { return watch.elapsed() >= sliceMilliseconds; };
    if (m_checks.done()) {
        if (siftOn(late)) {
            showAll();
        }
    } else if (m_checks.step(late)) {
        sift();
    } else {
        m_ui->prgChecks->setValue(static_cast<int>(m_checks.progress() * 1000));
    }
}

// Holds the findings against the filter, in slices, and only while they can be seen.
void frmChecks::sift() {
    m_stale = !isVisible();
    if (m_stale) {
        m_timer.stop();
        return;
    }
    m_matcher.emplace(m_filter);
    m_sifted = {};
    m_kind = 0;
    m_next = 0;
    m_timer.start();
    goOn();
}

bool frmChecks::siftOn(const std::function<bool()>& enough) {
    constexpr std::size_t findingsBetween = 256;
    for (; m_kind < checkKinds; ++m_kind, m_next = 0) {
        const Checks::Findings& findings = m_checks.of(static_cast<CheckKind>(m_kind));
        for (; m_next < findings.size(); ++m_next) {
            if (m_filter.empty() || leaves(*m_matcher, findings[m_next].where)) {
                m_sifted.at(m_kind).push_back(findings[m_next]);
            }
            if (m_next % findingsBetween == findingsBetween - 1 && enough()) {
                ++m_next;
                return false;
            }
        }
    }
    return true;
}

void frmChecks::showAll() {
    m_timer.stop();
    m_matcher.reset();
    m_ui->prgChecks->hide();
    m_ui->lblResult->show();
    m_ui->cmdSaveReport->setEnabled(true);
    showKinds();
    showResult();
}

// The kinds with their counts; the first one with a finding becomes the current one where that has none.
void frmChecks::showKinds() {
    QListWidget& list = *m_ui->lstKinds;
    const QSignalBlocker quiet(list);
    int first = -1;
    for (int i = 0; i < static_cast<int>(checkKinds); ++i) {
        const auto at = static_cast<std::size_t>(i);
        if (list.count() <= i) {
            list.addItem(QString());
        }
        const QString title = toQString(checkTitle(static_cast<CheckKind>(i)));
        const bool any = !m_sifted.at(at).empty();
        list.item(i)->setText(isChecked() ? tr("%1  (%2)").arg(title, QLocale().toString(m_sifted.at(at).size()))
                                          : title);
        QFont font = list.font();
        font.setBold(any);
        list.item(i)->setFont(font);
        first = first == -1 && any ? i : first;
    }
    // Bold texts and counts are seen in full.
    const int bar = list.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &list);
    list.setMinimumWidth(list.sizeHintForColumn(0) + 2 * list.frameWidth() + bar);
    if (list.currentRow() < 0 || m_sifted.at(static_cast<std::size_t>(list.currentRow())).empty()) {
        list.setCurrentRow(std::max(0, first));
    }
    showKind();
}

void frmChecks::showKind() {
    const int row = std::max(0, m_ui->lstKinds->currentRow());
    m_model.show(static_cast<CheckKind>(row), m_sifted.at(static_cast<std::size_t>(row)));
    fitColumns();
}

// By what the first findings need, so that the reason has all the rest.
void frmChecks::fitColumns() {
    QTableView& table = *m_ui->tblFindings;
    constexpr int looked = 200; // rows, also of a million
    table.horizontalHeader()->setResizeContentsPrecision(looked);
    const int rows = std::min(m_model.rowCount(), looked);
    bool anyLeg = false;
    for (int row = 0; row < rows; ++row) {
        anyLeg = anyLeg || legAt(m_model.place(row)).leg != 0;
    }
    table.setColumnHidden(legColumn, !anyLeg);
    for (const int column : {numberColumn, scheduleColumn, legColumn}) {
        table.resizeColumnToContents(column);
    }
}

void frmChecks::offerMenu(const QPoint& place) {
    const LegNumber where = m_model.place(m_ui->tblFindings->currentIndex().row());
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("contextMenu"));
    menu.addAction(tr("&Edit..."), this, [this] { edit(); })->setEnabled(where != 0 && m_commands.edit);
    menu.addSeparator();
    for (const std::string& terms : termsOf(where)) {
        const QString shown = toQString(terms);
        menu.addAction(tr("Only %1").arg(shown).replace(u'&', QStringLiteral("&&")), this,
                       [this, shown] { Q_EMIT filterWanted(shown); });
    }
    menu.exec(m_ui->tblFindings->viewport()->mapToGlobal(place));
}

void frmChecks::showResult() {
    if (!isChecked()) {
        m_ui->lblResult->setText(QString());
        return;
    }
    std::size_t shown = 0;
    for (const Checks::Findings& findings : m_sifted) {
        shown += findings.size();
    }
    const QString all = QLocale().toString(m_checks.count());
    QString text =
        m_filter.empty() ? tr("%1 findings").arg(all) : tr("%1 of %2 findings").arg(QLocale().toString(shown), all);
    text += m_old ? tr(", before the latest change") : QString();
    m_ui->lblResult->setText(text);
}

void frmChecks::edit() {
    const LegNumber where = m_model.place(m_ui->tblFindings->currentIndex().row());
    if (where != 0 && m_commands.edit) {
        m_commands.edit(legAt(where));
    }
}

void frmChecks::saveReport() {
    const std::string file =
        askforSaveFilename("Save the report", addbackslash(programFolder()) + "checks.txt", "Text file (*.txt)");
    if (!file.empty()) {
        trap(&frmChecks::writeReport, this, file);
    }
}

void frmChecks::writeReport(const std::string& path) {
    const BusyPointer busy{trap};
    try {
        ReplacingFile file(path);
        file.write(checksReport(m_checks));
        file.commit();
        m_ui->lblResult->setText(tr("Saved to %1").arg(toQString(path)));
    } catch (const Error& error) {
        host().message("The report could not be saved to " + path + ": " + error.description());
    }
}

} // namespace vantor
