#include "shell/update_commands.h"

#include "foundation/disk.h"
#include "foundation/host.h"
#include "foundation/native_path.h"
#include "foundation/text_files.h"
#include "platform/code_page.h"
#include "shell/command_runner.h"
#include "shell/life.h"
#include "shell/workspace.h"
#include "update/automatic_check.h"
#include "update/fSHAREDUpdater.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTimer>

namespace vantor {

namespace {

constexpr std::string_view module = "frmMain";
constexpr std::string_view setupName = "VantorUpd.exe";
constexpr std::string_view loseChanges =
    "Updating Vantor will restart your program, losing your unsaved changes. Are you sure?";

constexpr int checkDelay = 5000; // milliseconds from the window's opening to the automatic check
constexpr int retryDelay = 1000; // the same from a moment that did not suit

UpdateSource updateSource() {
    const std::string folder = VANTOR_UPDATE_SERVER "/versions/";
    return {folder + "VNT_current.txt", folder + "VNT_details.txt", std::string(setupName)};
}

// A question that fails is no Yes.
bool agreesToLose(const StandardTrap& trap) {
    bool sure = false;
    trap.set(sure, &Host::askYesNo, host(), loseChanges);
    return sure;
}

} // namespace

UpdateCommands::UpdateCommands(QWidget& window, QAbstractButton& cmdCheckUpdate, Workspace& workspace,
                               CommandRunner& runner, Life& life)
    : m_window(window), m_workspace(workspace), m_runner(runner), m_life(life), m_timer3(new QTimer(&window)) {
    // It lets everything run while it waits, and is no command of the runner: others run meanwhile, a close ends it.
    QObject::connect(&cmdCheckUpdate, &QAbstractButton::clicked, &window, [this] {
        if (!m_runner.busy()) {
            check();
        }
    });
    m_timer3->setObjectName(QStringLiteral("Timer3"));
    m_timer3->setSingleShot(true);
    m_timer3->setInterval(checkDelay);
    QObject::connect(m_timer3, &QTimer::timeout, &window, [this] { checkByItself(); });
}

void UpdateCommands::start() {
    m_timer3->start();
}

void UpdateCommands::stop() noexcept {
    if (m_updater != nullptr) {
        m_updater->updater().StopAll();
    }
}

fSHAREDUpdater& UpdateCommands::updater() {
    if (m_updater == nullptr) {
        m_updater = new fSHAREDUpdater(&m_window, transferControl ? transferControl() : nullptr);
        m_updater->updater().events.restart = [this] { return restartForInstall(); };
    }
    return *m_updater;
}

void UpdateCommands::begin(bool silent) {
    Updater& server = updater().updater();
    if (silent) {
        server.CheckForUpdate(true, updateSource());
    } else {
        server.ShowandCheck(updateSource());
    }
}

void UpdateCommands::check() noexcept {
    const StandardTrap trap{"sub cmdcheckupdate_click", module};
    if (!m_workspace.unsavedchanges || agreesToLose(trap)) {
        m_agreedAt = m_runner.begun();
        trap(&UpdateCommands::begin, this, false);
    }
}

void UpdateCommands::checkByItself() noexcept {
    const StandardTrap trap{"sub timer3_timer", module};
    if (m_runner.busy() || host().pumping() || QApplication::activeModalWidget() != nullptr) {
        // A check lets everything run, so it must not begin inside a command; nor should it talk into an open dialog.
        m_timer3->start(retryDelay);
        return;
    }
    if (!m_life.ended() && !CheckDisabled() && CheckDue()) {
        trap(&UpdateCommands::begin, this, true);
    }
}

bool UpdateCommands::restartForInstall() noexcept {
    const StandardTrap trap{"sub restartforinstall", module};
    const std::string installer = programFolder() + "\\Updater.exe";
    if (!FileExists(installer)) {
        trap(&Host::message, host(),
             "The installer is missing: " + installer + "\rClose Vantor and run " + programFolder() + "\\" +
                 std::string(setupName) + " to install the update.");
        return false;
    }
    const bool agreed = m_agreedAt == m_runner.begun(); // to all changes there are
    if (m_workspace.unsavedchanges && !agreed && !agreesToLose(trap)) {
        return false;
    }
    m_window.hide();
    trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
    stop();
    WriteTextFile(programFolder() + "\\updater.ini", setupName);
    trap(&Host::startProgram, host(), installer, fromQString(m_window.windowTitle()));
    if (m_workspace.unsavedchanges) { // only then was the user asked; the exit keeps what else was changed
        m_life.giveUpChanges();
    }
    m_life.exitprog();
    return true;
}

} // namespace vantor
