// frmMain: the views of the airport chosen in cmbICAO: timetable, its printing, gates, chart and map.
#include "core/codes.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/log.h"
#include "foundation/text.h"
#include "foundation/trap.h"
#include "platform/printer_choice.h"
#include "shell/frmMain.h"
#include "ui_frmMain.h"
#include "views/frmChart.h"
#include "views/frmMap.h"
#include "views/frmSchedulePrint.h"
#include "views/gates.h"
#include "views/timetable.h"

#include <string>

namespace vantor {

namespace {
constexpr std::string_view module = "frmMain";
} // namespace

void frmMain::connectViewCommands() {
    command(ui->cmdTimeTable, &frmMain::cmdTimeTable_Click);
    command(ui->cmdPrint, &frmMain::cmdPrint_Click);
    command(ui->cmdGates, &frmMain::cmdGates_Click);
    command(ui->cmdChart, &frmMain::cmdChart_Click);
    command(ui->cmdMap, &frmMain::cmdMap_Click);
}

void frmMain::cmdTimeTable_Click() noexcept {
    const StandardTrap trap{"sub cmdtimetable_click", module};
    trap([&] { displaytimetable(upper(ui->cmbICAO->text())); });
}

void frmMain::displaytimetable(std::string_view icao) noexcept {
    const StandardTrap trap{"sub displaytimetable", module};
    std::string code;
    trap([&] { code = extractcode(icao); });
    trap([&] { ui->List2->setEnabled(true); }); // off while the legs of a deleted schedule are shown
    trap([&] { ui->List2->setRows(timetableRows(code)); });
    trap([&] { settimetableicao(code); });
}

void frmMain::cmdPrint_Click() noexcept {
    const StandardTrap trap{"sub cmdprint_click", module};
    trap([&] {
        try {
            if (timetableicao().empty()) {
                host().message("Please display a timetable first");
                return;
            }
            chooseprinter(this, "Schedule"); // whatever becomes of the dialog, the printing goes on; it is meant
            ListRows rows;
            rows.reserve(static_cast<std::size_t>(ui->List2->rowCount()));
            for (int row = 0; row < ui->List2->rowCount(); ++row) {
                rows.push_back({ui->List2->rowText(row), 0});
            }
            printSchedule(currentPrinter(), schedulePrintout(timetableicao(), rows));
        } catch (...) {
            logit(currentError().description());
        }
    });
}

void frmMain::cmdGates_Click() noexcept {
    const StandardTrap trap{"sub cmdgates_click", module};
    trap([&] { displaymaxgates(ui->cmbICAO->text()); });
}

void frmMain::displaymaxgates(std::string_view icao) noexcept {
    const StandardTrap trap{"sub displaymaxgates", module};
    trap([&] { ui->List2->clear(); });
    trap([&] { ui->List2->setEnabled(true); });
    trap([&] { ui->List2->setRows(gateRows(extractcode(icao))); });
}

void frmMain::cmdChart_Click() noexcept {
    const StandardTrap trap{"sub cmdchart_click", module};
    trap([&] {
        frmChart chart(this);
        chart.showchart(ui->cmbICAO->text());
    });
}

void frmMain::cmdMap_Click() noexcept {
    const StandardTrap trap{"sub cmdmap_click", module};
    trap([&] {
        frmMap map(this);
        map.loadmap(ui->cmbICAO->currentRow());
        map.exec();
    });
}

} // namespace vantor
