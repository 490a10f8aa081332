#include "shell/status_line.h"

#include "core/codes.h"
#include "core/tables.h"
#include "foundation/text.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "platform/colours.h"
#include "platform/list_box.h"
#include "platform/picture_box.h"
#include "shell/documents.h"
#include "shell/path_label.h"
#include "shell/workspace.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPalette>
#include <QToolButton>

namespace vantor {

namespace {

struct LoadedCounts {
    std::int32_t schedules = 0;
    std::int64_t legs = 0;
};

// Deleted ones and lines without a schedule don't count.
LoadedCounts countLoaded() {
    LoadedCounts counts;
    for (std::int32_t recnum = 1; recnum <= schedulecount; ++recnum) {
        const ScheduleRec& schedule = schedules.peek(recnum);
        if (schedule.recnum != 0 && !schedule.deleted) {
            ++counts.schedules;
            counts.legs += schedule.legcount;
        }
    }
    return counts;
}

} // namespace

StatusLine::StatusLine(QWidget* parent)
    : QWidget(parent), m_happened(new PathLabel(this)), m_bar(new PictureBox(this)) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(2, 0, 4, 0);
    row->setSpacing(0);
    m_happened->setObjectName(QStringLiteral("lblHappened"));
    m_happened->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    row->addWidget(m_happened, 1);
    m_bar->setObjectName(QStringLiteral("picWork"));
    m_bar->setAccessibleName(QStringLiteral("Progress"));
    m_bar->setFixedSize(16 * fontMetrics().averageCharWidth(), fontMetrics().height());
    m_bar->setPalette(progressPalette(m_bar->palette()));
    m_bar->hide();
    row->addWidget(m_bar);
    const auto add = [&](const char* name) {
        auto* const label = new QLabel(this);
        label->setObjectName(QLatin1String(name));
        label->setTextFormat(Qt::PlainText);
        label->setContentsMargins(12, 0, 0, 0);
        row->addWidget(label);
        return label;
    };
    m_loaded = add("lblLoaded");
    m_rows = add("lblRows");
    m_file = add("lblFile");
    m_mode = add("lblLoadedMode");
    m_unsaved = add("lblUnsaved");
    m_offset = add("lblOffset");
    m_leastWantedFirst = {m_loaded, m_rows, m_file};
    m_unsaved->setToolTip(QStringLiteral("There are changes that Save Flights (Ctrl+S) has not written yet"));
    m_offset->setToolTip(QStringLiteral(
        "Times are shown with this offset. Set it to 00:00 before you open the schedule editor (see the manual, F1)"));
    colourWarnings();
    m_explorer = new QToolButton(this);
    m_explorer->setObjectName(QStringLiteral("cmdExplorer"));
    m_explorer->setText(QStringLiteral("Explorer"));
    m_explorer->setToolTip(QStringLiteral("All flights in one table, on a map, and checked (Ctrl+T)"));
    m_explorer->setFocusPolicy(Qt::NoFocus); // it has its key, and Tab stays in the groups
    row->addSpacing(12);
    row->addWidget(m_explorer);
    connect(m_explorer, &QToolButton::clicked, this, &StatusLine::explorerWanted);
}

void StatusLine::tell(const std::string& text) {
    m_fault = false;
    m_happened->setCursor(Qt::ArrowCursor);
    m_happened->setPath(toQString(text));
}

void StatusLine::tellFault(const std::string& action) {
    m_fault = true;
    m_happened->setCursor(Qt::PointingHandCursor);
    const std::size_t end = action.rfind(") in "); // behind it stands where it happened
    m_happened->setPath(toQString(end == std::string::npos ? action : action.substr(0, end + 1)));
    m_happened->setToolTip(toQString(action).toHtmlEscaped() + QStringLiteral("<br>A click opens the log."));
}

void StatusLine::showState(const Workspace& workspace) {
    const StandardTrap trap{"sub showstate", "frmMain"};
    LoadedCounts counts;
    trap.set(counts, countLoaded);
    m_loaded->setText(toQString(counted(counts.schedules, "schedule") + ", " + counted(counts.legs, "leg") + ", " +
                                std::to_string(aircraftcount) + " aircraft, " + counted(airportcount, "airport")));
    const std::string& file = workspace.flightsname;
    m_file->setText(toQString(file.substr(file.rfind('\\') + 1)));
    m_file->setToolTip(toQString(file).toHtmlEscaped());
    const bool otherMode = workspace.loadedMode != 0 && workspace.loadedMode != fsmode;
    m_mode->setText(otherMode ? QStringLiteral("loaded for FS200%1").arg(workspace.loadedMode) : QString());
    m_unsaved->setText(workspace.unsavedchanges ? QStringLiteral("unsaved") : QString());
    m_offset->setText(gmtoffset != 0.0F ? toQString(gmtstring()) : QString());
    makeRoom();
}

void StatusLine::showRows(const ListBox& list) {
    const int last = list.rowCount() - 1;
    const int closing = last >= 0 && list.rowText(last).empty() ? 1 : 0; // the empty row behind the others
    m_rows->setText(
        toQString(counted(last + 1 - closing, "row") + ", " + std::to_string(list.selectedRowCount()) + " selected"));
    makeRoom();
}

QSize StatusLine::minimumSizeHint() const {
    return {0, QWidget::minimumSizeHint().height()};
}

StatusLine::Work::Work(StatusLine& line, const std::string& what)
    : m_line(line), m_text(line.m_happened->text()), m_toolTip(line.m_happened->toolTip()) {
    say(what);
}

StatusLine::Work::~Work() {
    m_line.m_bar->hide();
    m_line.m_happened->setPath(m_text);
    m_line.m_happened->setToolTip(m_toolTip);
    m_line.makeRoom();
}

void StatusLine::Work::say(const std::string& what) {
    m_line.m_happened->setPath(toQString(what));
}

Canvas* StatusLine::Work::bar() const {
    m_line.m_bar->clear();
    m_line.m_bar->show();
    m_line.makeRoom();
    return m_line.m_bar;
}

void StatusLine::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        colourWarnings();
    }
}

// Bold as well, since not everyone tells colours apart.
void StatusLine::colourWarnings() {
    for (QLabel* const label : {m_unsaved, m_offset}) {
        QPalette colours = palette();
        colours.setColor(QPalette::WindowText, warningColourOn(colours.color(QPalette::Window)));
        label->setPalette(colours);
        QFont bold = font();
        bold.setBold(true);
        label->setFont(bold);
    }
}

void StatusLine::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    makeRoom();
}

void StatusLine::mouseReleaseEvent(QMouseEvent* event) {
    if (m_fault && m_happened->geometry().contains(event->position().toPoint())) {
        showLog();
    }
}

void StatusLine::makeRoom() {
    int needed = m_happened->minimumSizeHint().width() + (m_bar->isHidden() ? 0 : m_bar->width()) +
                 m_explorer->sizeHint().width() + 12;
    for (QLabel* const label : findChildren<QLabel*>()) {
        if (label != m_happened) {
            label->setVisible(!label->text().isEmpty());
            needed += label->text().isEmpty() ? 0 : label->sizeHint().width();
        }
    }
    for (QLabel* const label : m_leastWantedFirst) {
        if (needed > width() && !label->text().isEmpty()) {
            needed -= label->sizeHint().width();
            label->hide();
        }
    }
}

} // namespace vantor
