#include "shell/explorer_window.h"

#include "bulk/aircraft_swap.h"
#include "core/codes.h"
#include "core/combo_rows.h"
#include "core/tables.h"
#include "core/undo.h"
#include "explorer/frmExplorer.h"
#include "foundation/busy_pointer.h"
#include "foundation/host.h"
#include "platform/code_page.h"
#include "schedule/frmSchedEdit.h"
#include "schedule/schedule_commands.h"
#include "shell/command_runner.h"
#include "shell/lists.h"
#include "shell/undo_commands.h"
#include "shell/workspace.h"
#include "simulator/frmAircraftSub.h"

#include <QElapsedTimer>
#include <QShortcut>

#include <algorithm>
#include <optional>
#include <string>

namespace vantor {

namespace {

constexpr std::string_view module = "frmExplorer";

// The schedules of some rows, each once, in their order.
std::vector<std::int32_t> schedulesOf(const std::vector<LegId>& rows) {
    std::vector<std::int32_t> recnums;
    std::vector<bool> seen(static_cast<std::size_t>(schedulecount) + 1);
    for (const LegId& row : rows) {
        const auto at = static_cast<std::size_t>(row.recnum);
        if (at < seen.size() && !seen[at]) {
            seen[at] = true;
            recnums.push_back(row.recnum);
        }
    }
    return recnums;
}

std::string aircraftOf(std::int32_t recnum) {
    return std::string(schedules.peek(recnum).acnum.text());
}

std::string countedSchedules(const std::vector<std::int32_t>& recnums) {
    return counted(static_cast<std::int64_t>(recnums.size()), "schedule");
}

} // namespace

ExplorerWindow::ExplorerWindow(QWidget& window, const Controls& ui, Workspace& workspace, CommandRunner& runner,
                               Lists& lists, UndoCommands& undo)
    : m_window(window), m_ui(ui), m_workspace(workspace), m_runner(runner), m_lists(lists), m_undo(undo) {}

ExplorerWindow::~ExplorerWindow() = default;

frmExplorer& ExplorerWindow::form() {
    if (!m_form) {
        m_form = std::make_unique<frmExplorer>();
        m_form->setWindowIcon(m_window.windowIcon());
        // What a command changes is one step of the journal, as with a button of the main window.
        const auto command = [this](std::string_view name, auto handler) {
            return [this, name, handler](const auto& rows) {
                m_runner.run({name, module}, [&](const StandardTrap& trap) {
                    const Step step{std::string(name)};
                    std::string did = (this->*handler)(trap, rows);
                    if (!did.empty()) {
                        nameStep(did);
                    }
                    return did;
                });
            };
        };
        m_form->setCommands({command("edit", &ExplorerWindow::edit), command("delete", &ExplorerWindow::remove),
                             command("swap", &ExplorerWindow::swap), command("copy", &ExplorerWindow::copy)});
        const auto key = [this](const QKeySequence& keys, void (UndoCommands::*way)()) {
            auto* const shortcut = new QShortcut(keys, m_form.get());
            QObject::connect(shortcut, &QShortcut::activated, m_form.get(), [this, way] { (m_undo.*way)(); });
        };
        key(QKeySequence(Qt::CTRL | Qt::Key_Z), &UndoCommands::undo);
        key(QKeySequence(Qt::CTRL | Qt::Key_Y), &UndoCommands::redo);
        key(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), &UndoCommands::redo);
    }
    return *m_form;
}

void ExplorerWindow::open(std::string_view filter) {
    form().open(toQString(filter));
}

void ExplorerWindow::close() {
    if (m_form) {
        m_form->close();
    }
}

void ExplorerWindow::commandEnded() {
    const Seen now{journal().state(), airportcount, gmtoffset};
    if (m_form && now != m_seen) {
        m_form->tablesChanged();
    }
    m_seen = now;
}

std::string ExplorerWindow::edit(const StandardTrap& trap, LegId id) {
    ScheduleRec schedule;
    std::optional<ScheduleRec> edited;
    if (trap.set(schedule, &clsHashSC::HashGetSlot, schedules, id.recnum) && schedule.recnum != 0) {
        edited = editSchedule(&form(), schedule, {aircraftRows(true), m_ui.cmbICAO->rows()}, std::max(0, id.leg - 1));
    }
    if (!edited) {
        return {};
    }
    const BusyPointer busy{trap};
    trap(&clsHashSC::HashPutSlot, schedules, id.recnum, *edited);
    refresh(trap);
    return "Edit " + std::string(edited->tailnumber.text());
}

std::string ExplorerWindow::remove(const StandardTrap& trap, const std::vector<LegId>& rows) {
    const BusyPointer busy{trap};
    ScheduleRec touched;
    bool legs = false;
    goThrough(rows.size(), [&](std::size_t at) {
        legs = legs || rows[at].leg != 0;
        if (rows[at]) {
            toggleleg(trap, rows[at], touched);
        } else {
            deleteschedbyrecnum(rows[at].recnum);
        }
    });
    refresh(trap);
    return "Delete " + counted(static_cast<std::int64_t>(rows.size()), legs ? "leg" : "schedule");
}

std::string ExplorerWindow::swap(const StandardTrap& trap, const std::vector<LegId>& rows) {
    const std::vector<std::int32_t> recnums = schedulesOf(rows);
    std::string code;
    if (recnums.empty() || !trap.set(code, aircraftOf, recnums.front())) {
        return {};
    }
    const auto chosen = chooseAircraft(&form(), code, aircraftRows(false));
    if (!chosen || chosen->row.empty()) {
        return {};
    }
    const BusyPointer busy{trap};
    swapAircraft(trap, recnums, chosen->row);
    refresh(trap);
    return "Swap " + countedSchedules(recnums) + " to " + extractcode(chosen->row);
}

std::string ExplorerWindow::copy(const StandardTrap& trap, const std::vector<LegId>& rows) {
    const BusyPointer busy{trap};
    const std::vector<std::int32_t> recnums = schedulesOf(rows);
    goThrough(recnums.size(), [&](std::size_t at) { copyschedule(trap, recnums[at]); });
    refresh(trap);
    return "Copy " + countedSchedules(recnums);
}

// Of a million rows, each some microseconds long, the window tells how far it has come.
void ExplorerWindow::goThrough(std::size_t count, const std::function<void(std::size_t)>& step) {
    constexpr int patience = 200; // milliseconds
    QElapsedTimer watch;
    watch.start();
    for (std::size_t at = 0; at < count; ++at) {
        step(at);
        if (watch.elapsed() >= patience) {
            form().showProgress(static_cast<double>(at) / static_cast<double>(count));
            host().pumpEvents(Pump::PaintAndTimers);
            watch.restart();
        }
    }
    form().showProgress(1);
}

// The lists of the main window show schedules only when they were asked to.
void ExplorerWindow::refresh(const StandardTrap& trap) {
    m_workspace.unsavedchanges = true;
    if (m_ui.List1->rowCount() > 0) {
        trap(&Lists::refresh, m_lists, m_ui.List1->currentRow());
        m_ui.List2->clear();
    }
}

} // namespace vantor
