#include "shell/tool_commands.h"

#include "core/settings_keys.h"
#include "core/tables.h"
#include "foundation/busy_pointer.h"
#include "foundation/disk.h"
#include "foundation/native_path.h"
#include "platform/code_page.h"
#include "shell/application_settings.h"
#include "shell/command_runner.h"
#include "shell/frmSettings.h"
#include "shell/lists.h"
#include "shell/status_line.h"
#include "shell/workspace.h"
#include "simulator/aircraft_report.h"
#include "simulator/traffic_tool.h"
#include "ui_compile_box.h"
#include "ui_missing_aircraft_box.h"
#include "ui_mode_box.h"

#include <QElapsedTimer>

#include <utility>

namespace vantor {

namespace {

constexpr std::string_view module = "frmMain";

constexpr std::string_view unsavedQuestion =
    "You haven't saved your flightplans and/or aircraft.  Are you sure you want to compile now?";
constexpr std::string_view decompileQuestion =
    "This will overwrite the current flightplans, aircraft and airports with values extracted from Flight Simulator - "
    "are you sure?";
constexpr std::string_view reloadNow =
    "You must now reload your data if you want to use the new flightplans extracted from Flight Simulator.";

std::string updateQuestion() {
    return "This will update Flight Simulator 200" + std::to_string(fsmode) + " with your changes - are you sure?";
}

} // namespace

ToolCommands::ToolCommands(QWidget& owner, const Controls& ui, Workspace& workspace, CommandRunner& runner,
                           Lists& lists, StatusLine& status)
    : m_owner(owner), m_ui(ui), m_workspace(workspace), m_lists(lists), m_status(status) {
    using Self = ToolCommands;
    connectMode(ui.mode.optFS2k2, {"sub optfs2k2_click", module}, 2, runner);
    connectMode(ui.mode.optFS2k4, {"sub optfs2k4_click", module}, 4, runner);
    runner.command(ui.compile.cmdCompile, {"sub cmdcompile_click", module}, this, &Self::compile);
    runner.command(ui.compile.cmdDecompile, {"sub cmddecompile_click", module}, this, &Self::decompile);
    runner.command(ui.missing.cmdACReport, {"sub cmdacreport_click", module}, this, &Self::report);
    runner.command(ui.cmdSettings, {"sub cmdsettings_click", module}, this, &Self::settings);
}

void ToolCommands::connectMode(QRadioButton* option, Procedure procedure, std::int16_t mode, CommandRunner& runner) {
    QObject::connect(option, &QRadioButton::clicked, option, [this, procedure, mode, &runner] {
        if (!runner.run(procedure, [this, mode](const StandardTrap&) {
                chooseMode(mode);
                return "Mode FS200" + std::to_string(mode);
            })) {
            markMode(); // the click has marked the other one
        }
    });
}

void ToolCommands::markMode() {
    (fsmode == 2 ? m_ui.mode.optFS2k2 : m_ui.mode.optFS2k4)->setChecked(true);
}

void ToolCommands::setupformwithcurrentmode() noexcept {
    markMode();
    if (fsmode != 2) {
        plansuffix = "030528"; // that of FS2002 is left to its load: a switch back keeps the other's
    }
    // Selecting a mode stores it, also at the start: a first run that ends without a choice has chosen the default.
    sset(keys::fsMode, fsmode);
    m_ui.compile.cmdCompile->setEnabled(FileExists(compiletool));
    m_ui.compile.cmdDecompile->setEnabled(FileExists(decompiletool));
    m_ui.missing.cmdSubAC->setVisible(true);
    m_ui.missing.List3->setEnabled(true);
    m_ui.FrameFSAC->setTitle(toQString("AI Aircraft missing from FS200" + std::to_string(fsmode)));
}

void ToolCommands::chooseMode(std::int16_t mode) {
    sset(keys::fsMode, mode);
    readsettings();
    setupformwithcurrentmode();
}

std::string ToolCommands::compile(const StandardTrap& trap) {
    if (schedulecount == 0) {
        host().message("No data loaded, cannot compile");
        return {};
    }
    std::string missing;
    if (airportsmissing(missing)) {
        host().message("You can't compile this file.  The following airports are missing: " + missing);
        return {};
    }
    if (host().askYesNo(m_workspace.unsavedchanges ? unsavedQuestion : updateQuestion())) {
        // What the tool made of it can't be known: nothing is looked at, and the tool gets what is on disk.
        runTool(trap, compileCommand(compiletool));
        return "Compiled; whether TrafficTools was content it says itself";
    }
    return {};
}

std::string ToolCommands::decompile(const StandardTrap& trap) {
    if (host().askYesNo(decompileQuestion)) {
        runTool(trap, decompileCommand(decompiletool));
        host().message(reloadNow);
        return "Decompiled";
    }
    return {};
}

void ToolCommands::runTool(const StandardTrap& trap, const std::string& command) {
    const BusyPointer busy{trap};
    StatusLine::Work work(m_status, "TrafficTools is running");
    QElapsedTimer since;
    since.start();
    qint64 told = 0;
    // Keys and clicks meanwhile are lost: carried out afterwards, they could hit another control.
    const auto repaint = [&] {
        if (const qint64 seconds = since.elapsed() / 1000; seconds != std::exchange(told, seconds)) {
            trap(&StatusLine::Work::say, work, "TrafficTools has been running for " + std::to_string(seconds) + " s");
        }
        trap(&Host::pumpEvents, host(), Pump::DropInput);
    };
    trap(ExecCmd, command, repaint);
    repaint();
}

std::string ToolCommands::report(const StandardTrap& /*trap*/) {
    {
        const StatusLine::Work work(m_status, "Looking through the aircraft folders");
        modACReport(work.bar());
    }
    // In small letters, unlike the name it was written under.
    host().viewTextFile(programFolder() + "\\aclog.txt");
    return "Reported on the aircraft folders in ACLOG.TXT";
}

std::string ToolCommands::settings(const StandardTrap& trap) {
    frmSettings form(&m_owner);
    trap(&QDialog::exec, &form);
    if (m_ui.List1->currentRow() >= 0) { // without one there is nothing to show anew
        m_lists.displaylegs(m_ui.List1->currentItemData(), "");
    }
    return {};
}

} // namespace vantor
