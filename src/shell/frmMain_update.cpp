// frmMain: newer versions of the program, asked for by a button and once a week by itself.
#include "foundation/disk.h"
#include "foundation/host.h"
#include "foundation/native_path.h"
#include "foundation/text_files.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "shell/frmMain.h"
#include "ui_frmMain.h"
#include "update/automatic_check.h"
#include "update/fSHAREDUpdater.h"

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

} // namespace

void frmMain::connectUpdateCommands() {
    // It waits with everything let through and takes nobody's turn: commands run meanwhile, and a close ends it.
    connect(ui->cmdCheckUpdate, &QPushButton::clicked, this, [this] {
        if (m_running == 0) {
            cmdCheckUpdate_Click();
        }
    });
    m_timer3 = new QTimer(this);
    m_timer3->setObjectName(QStringLiteral("Timer3"));
    m_timer3->setSingleShot(true);
    m_timer3->setInterval(checkDelay);
    connect(m_timer3, &QTimer::timeout, this, &frmMain::Timer3_Timer);
}

fSHAREDUpdater& frmMain::updater() {
    if (m_updater == nullptr) {
        m_updater = new fSHAREDUpdater(this, transferControl ? transferControl() : nullptr);
        m_updater->updater().events.restart = [this] { return restartForInstall(); };
    }
    return *m_updater;
}

void frmMain::cmdCheckUpdate_Click() noexcept {
    const StandardTrap trap{"sub cmdcheckupdate_click", module};
    bool sure = !unsavedchanges; // a question that fails is no Yes
    trap([&] {
        if (unsavedchanges) {
            sure = host().askYesNo(loseChanges);
        }
    });
    if (sure) {
        m_changesGivenUp = unsavedchanges;
        trap([&] { updater().updater().ShowandCheck(updateSource()); });
    }
}

void frmMain::Timer3_Timer() noexcept {
    const StandardTrap trap{"sub timer3_timer", module};
    if (m_running > 0 || host().pumping() || QApplication::activeModalWidget() != nullptr) {
        // A check lets everything run, so it must not begin inside a command; nor should it talk into an open dialog.
        trap([&] { m_timer3->start(retryDelay); });
        return;
    }
    if (!m_ended && !CheckDisabled() && CheckDue()) {
        trap([&] { updater().updater().CheckForUpdate(true, updateSource()); });
    }
}

bool frmMain::restartForInstall() noexcept {
    const StandardTrap trap{"sub restartforinstall", module};
    const std::string installer = programFolder() + "\\Updater.exe";
    if (!FileExists(installer)) {
        trap([&] {
            host().message("The installer is missing: " + installer + "\rClose Vantor and run " + programFolder() +
                           "\\" + std::string(setupName) + " to install the update.");
        });
        return false;
    }
    const bool ask = unsavedchanges && !m_changesGivenUp; // changes made since the check began
    bool sure = !ask;
    trap([&] {
        if (ask) {
            sure = host().askYesNo(loseChanges);
        }
    });
    if (!sure) {
        return false;
    }
    trap([&] { hide(); });
    trap([] { host().pumpEvents(Pump::PaintAndTimers); });
    stopUpdater();
    trap([] { WriteTextFile(programFolder() + "\\updater.ini", setupName); });
    trap([&] { host().startProgram(installer, fromQString(windowTitle())); });
    unsavedchanges = false;
    exitprog();
    return true;
}

void frmMain::stopUpdater() noexcept {
    if (m_updater != nullptr) {
        m_updater->updater().StopAll();
    }
}

} // namespace vantor
