#include "shell/view_commands.h"

#include "core/codes.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/log.h"
#include "foundation/text.h"
#include "platform/printer_choice.h"
#include "shell/command_runner.h"
#include "shell/lists.h"
#include "shell/schedule_print.h"
#include "ui_airport_box.h"
#include "views/frmChart.h"
#include "views/frmMap.h"
#include "views/gates.h"
#include "views/timetable.h"

#include <utility>

namespace vantor {

namespace {
constexpr std::string_view module = "frmMain";
} // namespace

ViewCommands::ViewCommands(QWidget& owner, Ui::AirportBox& ui, ListBox* list2, QAbstractButton* cmdPrint,
                           CommandRunner& runner, Lists& lists)
    : m_owner(owner), m_ui(ui), m_list2(list2), m_lists(lists) {
    runner.command(ui.cmdTimeTable, {"sub cmdtimetable_click", module}, this, &ViewCommands::showTimetable);
    runner.command(cmdPrint, {"sub cmdprint_click", module}, this, &ViewCommands::print);
    runner.command(ui.cmdGates, {"sub cmdgates_click", module}, this, &ViewCommands::showGates);
    runner.command(ui.cmdChart, {"sub cmdchart_click", module}, this, &ViewCommands::showChart);
    runner.command(ui.cmdMap, {"sub cmdmap_click", module}, this, &ViewCommands::showMap);
}

std::string ViewCommands::showTimetable(const StandardTrap& /*trap*/) {
    displaytimetable(upper(m_ui.cmbICAO->text()));
    return {};
}

void ViewCommands::displaytimetable(std::string_view icao) noexcept {
    const StandardTrap trap{"sub displaytimetable", module};
    const std::string code = extractcode(icao);
    m_list2->setEnabled(true); // off while the legs of a deleted schedule are shown
    if (ListRows rows; trap.set(rows, timetableRows, trap, code)) {
        m_list2->setRows(std::move(rows));
    }
    trap(&Lists::settimetableicao, m_lists, code);
}

std::string ViewCommands::print(const StandardTrap& /*trap*/) {
    try {
        if (m_lists.timetableicao().empty()) {
            host().message("Please display a timetable first");
            return {};
        }
        // Quirk: whatever becomes of the dialog, the printing goes on.
        chooseprinter(&m_owner, "Schedule");
        printSchedule(currentPrinter(), schedulePrintout(m_lists.timetableicao(), m_list2->rows()));
        return "Printed the timetable of " + m_lists.timetableicao();
    } catch (...) {
        const Error error = currentError();
        logit(error.description());
        return "Not printed: " + error.description();
    }
}

std::string ViewCommands::showGates(const StandardTrap& /*trap*/) {
    displaymaxgates(m_ui.cmbICAO->text());
    return {};
}

void ViewCommands::displaymaxgates(std::string_view icao) noexcept {
    const StandardTrap trap{"sub displaymaxgates", module};
    m_list2->clear();
    m_list2->setEnabled(true);
    if (ListRows rows; trap.set(rows, gateRows, trap, extractcode(icao))) {
        m_list2->setRows(std::move(rows));
    }
}

std::string ViewCommands::showChart(const StandardTrap& /*trap*/) {
    frmChart chart(&m_owner);
    chart.showchart(m_ui.cmbICAO->text());
    return {};
}

std::string ViewCommands::showMap(const StandardTrap& /*trap*/) {
    openMap(m_ui.cmbICAO->currentRow());
    return {};
}

void ViewCommands::showMapOf(std::string_view icao) {
    for (int row = 0; row < m_ui.cmbICAO->rowCount(); ++row) {
        if (extractcode(m_ui.cmbICAO->rowText(row)) == icao) {
            openMap(row);
            return;
        }
    }
}

void ViewCommands::openMap(int row) {
    frmMap map(&m_owner);
    map.loadmap(row);
    map.exec();
}

} // namespace vantor
