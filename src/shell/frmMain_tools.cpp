// frmMain: the simulator's outside tool and the report on its aircraft folders.
#include "core/tables.h"
#include "foundation/host.h"
#include "foundation/native_path.h"
#include "foundation/trap.h"
#include "shell/application_settings.h"
#include "shell/frmMain.h"
#include "simulator/aircraft_report.h"
#include "simulator/traffic_tool.h"
#include "ui_frmMain.h"

namespace vantor {

namespace {
constexpr std::string_view module = "frmMain";
} // namespace

void frmMain::connectToolCommands() {
    command(ui->cmdCompile, &frmMain::cmdCompile_Click);
    command(ui->cmdDecompile, &frmMain::cmdDecompile_Click);
    command(ui->cmdACReport, &frmMain::cmdACReport_Click);
}

void frmMain::cmdCompile_Click() noexcept {
    const StandardTrap trap{"sub cmdcompile_click", module};
    if (schedulecount == 0) {
        trap([] { host().message("No data loaded, cannot compile"); });
        return;
    }
    std::string missing;
    if (airportsmissing(missing)) {
        trap([&] { host().message("You can't compile this file.  The following airports are missing: " + missing); });
        return;
    }
    bool sure = false;
    trap([&] {
        sure = host().askYesNo(unsavedchanges ? "You haven't saved your flightplans and/or aircraft.  Are you sure you "
                                                "want to compile now?"
                                              : "This will update Flight Simulator 200" + std::to_string(fsmode) +
                                                    " with your changes - are you sure?");
    });
    if (sure) {
        // What the tool made of it can't be known: nothing is looked at, and the tool gets what is on disk.
        trap([] { ExecCmd(compileCommand(compiletool)); });
    }
}

void frmMain::cmdDecompile_Click() noexcept {
    const StandardTrap trap{"sub cmddecompile_click", module};
    bool sure = false;
    trap([&] {
        sure = host().askYesNo("This will overwrite the current flightplans, aircraft and airports with values "
                               "extracted from Flight Simulator - are you sure?");
    });
    if (!sure) {
        return;
    }
    trap([] { ExecCmd(decompileCommand(decompiletool)); });
    trap([] {
        host().message("You must now reload your data if you want to use the new flightplans extracted from Flight "
                       "Simulator.");
    });
}

void frmMain::cmdACReport_Click() noexcept {
    const StandardTrap trap{"sub cmdacreport_click", module};
    modACReport();
    // In small letters, unlike the name it was written under.
    trap([] { host().viewTextFile(programFolder() + "\\aclog.txt"); });
}

} // namespace vantor
