#include "shell/frmMain.h"

#include "core/settings_keys.h"
#include "core/tables.h"
#include "foundation/disk.h"
#include "foundation/host.h"
#include "foundation/locale_words.h"
#include "foundation/log.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "shell/application_settings.h"
#include "shell/fSHAREDAbout.h"
#include "shell/frmArtwork.h"
#include "shell/frmSettings.h"
#include "ui_frmMain.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QLayout>
#include <QShortcut>
#include <QStyle>
#include <QTimer>

#include <initializer_list>
#include <utility>

namespace vantor {

namespace {
constexpr std::string_view module = "frmMain";
} // namespace

frmMain::frmMain(QWidget* parent) : QMainWindow(parent), ui(std::make_unique<Ui::frmMain>()) {
    ui->setupUi(this);
    connectCommands();
    connectListCommands();
    connectScheduleCommands();
    connectViewCommands();
    connectUtilityCommands();
    connectAircraftCommands();
    connectToolCommands();
    connectUpdateCommands();
    connectShortcuts();
}

frmMain::~frmMain() = default;

void frmMain::command(QAbstractButton* button, std::function<void(frmMain&)> handler) {
    connect(button, &QAbstractButton::clicked, this, [this, handler = std::move(handler)] { runCommand(handler); });
}

void frmMain::runCommand(const std::function<void(frmMain&)>& handler) {
    // A click can slip in where a dialog has closed and its command has not gone on yet, or where a wait lets
    // everything through.
    if (m_running == 0) {
        const Running running(*this);
        m_changesGivenUp = false; // who agreed to lose changes did not agree to lose what this command may add
        handler(*this);
    }
}

frmMain::Running::~Running() {
    if (--m_form.m_running == 0 && std::exchange(m_form.m_closeWaits, false)) {
        QMetaObject::invokeMethod(&m_form, &QWidget::close, Qt::QueuedConnection);
    }
}

void frmMain::connectCommands() {
    command(ui->cmdReload, &frmMain::cmdReload_Click);
    command(ui->cmdLoadFlightPlan, &frmMain::cmdLoadFlightPlan_Click);
    command(ui->cmdSaveFlights, &frmMain::cmdSaveFlights_Click);
    command(ui->cmdSaveAircraft, &frmMain::cmdSaveAircraft_Click);
    command(ui->cmdSettings, &frmMain::cmdSettings_Click);
    command(ui->cmdExit, &frmMain::cmdExit_Click);
    connect(ui->picClunk, &PictureBox::clicked, this, [this] { runCommand(&frmMain::picClunk_Click); });
    connect(ui->optFS2k2, &QRadioButton::clicked, this, &frmMain::optFS2k2_Click);
    connect(ui->optFS2k4, &QRadioButton::clicked, this, &frmMain::optFS2k4_Click);
}

void frmMain::connectListCommands() {
    command(ui->cmdListall, &frmMain::cmdListall_Click);
    command(ui->cmdListICAO, &frmMain::cmdListICAO_Click);
    command(ui->cmdListACnum, &frmMain::cmdListACnum_Click);
    command(ui->cmdListUniqueAC, &frmMain::cmdListUniqueAC_Click);
    command(ui->cmdListUniqueICAO, &frmMain::cmdListUniqueICAO_Click);
    connect(ui->cmbAC, &ComboBox::rowClicked, this, &frmMain::cmbAC_Click);
    connect(ui->cmbICAO, &ComboBox::rowClicked, this, &frmMain::cmbICAO_Click);
    connect(ui->List1, &ListBox::rowClicked, this, &frmMain::List1_Click);
    connect(ui->List2, &ListBox::rowClicked, this, &frmMain::List2_Click);
    connect(ui->List3, &ListBox::rowClicked, this, &frmMain::List3_Click);
}

void frmMain::connectShortcuts() {
    // A shortcut presses its button, so that a disabled command stays out of reach.
    const auto press = [this](const QKeySequence& keys, QPushButton* button, QWidget* where) {
        const auto context = where == this ? Qt::WindowShortcut : Qt::WidgetShortcut;
        auto* const shortcut = new QShortcut(keys, where);
        shortcut->setContext(context);
        connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
    };
    press(QKeySequence(Qt::Key_F5), ui->cmdReload, this);
    press(QKeySequence(Qt::CTRL | Qt::Key_S), ui->cmdSaveFlights, this);
    press(QKeySequence(Qt::CTRL | Qt::Key_L), ui->cmdListall, this);
    press(QKeySequence(Qt::Key_Delete), ui->cmdDeleteSchedule, ui->List1);
    press(QKeySequence(Qt::Key_Delete), ui->cmdDeleteLeg, ui->List2);
}

void frmMain::formLoad() {
    try {
        for (int percent = 0; percent <= 100; percent += 5) {
            ui->cmbPC1->addRow(std::to_string(percent) + "%");
        }
        ui->cmbPC1->setCurrentRow(0);
        schedules = clsHashSC();
        airports = clsHashAP();
        setWindowTitle(toQString("Vantor " + appversion()));
        setWindowIcon(applicationIcon());
        logit("Vantor version " + appversion() + " starting.", true);
        LoadSettings(settingsFile());
        if (!modeChosen()) {
            host().message("Select FS2002 or FS2004 mode, then set up the file locations in the settings screen.");
            fsmode = keys::fsMode.fallback; // also where the store holds something that is no number
        }
        readsettings();
        setupformwithcurrentmode();
        settimetableicao("");
    } catch (...) {
        const Error error = currentError();
        errorexit("Error " + std::to_string(error.number()) + " - " + error.description());
    }
}

void frmMain::showEvent(QShowEvent* event) {
    fitPanel();
    ui->picClunk->setPicture(clunkPicture(ui->picClunk->contentsRect().size(), devicePixelRatioF()));
    QMainWindow::showEvent(event);
    if (!std::exchange(m_opened, true)) {
        m_timer3->start();
    }
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    // Some window systems hand out sizes below the least one that they were told.
    if (!isMinimized() && size() != size().expandedTo(minimumSize())) {
        resize(size().expandedTo(minimumSize()));
    }
}

void frmMain::fitPanel() {
    // One size for the five frames of which one shows at a time, so that nothing moves when another is chosen.
    const std::initializer_list<QWidget*> frames = {ui->frameMassUpdate, ui->frameSetATCPercent, ui->frameDelByIcao,
                                                    ui->frameSplit, ui->frameSplitAC};
    QSize size;
    for (QWidget* const frame : frames) {
        frame->ensurePolished();
        size = size.expandedTo(frame->minimumSizeHint());
    }
    for (QWidget* const frame : frames) {
        frame->setMinimumSize(size);
    }
    ui->panelContent->layout()->activate();
    // The panel only ever scrolls up and down: it is as wide as what it holds.
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, ui->panel);
    ui->panel->setFixedWidth(ui->panelContent->minimumSizeHint().width() + bar);
}

void frmMain::setupformwithcurrentmode() noexcept {
    const StandardTrap trap{"sub setupformwithcurrentmode", module};
    trap([&] {
        if (fsmode == 2) {
            ui->optFS2k2->setChecked(true); // the suffix stays as it stands, also after a switch from FS2004
        } else {
            ui->optFS2k4->setChecked(true);
            plansuffix = "030528";
        }
    });
    // Selecting a mode stores it, also at the start: a first run that ends without a choice has chosen the default.
    sset(keys::fsMode, fsmode);
    trap([&] { ui->cmdCompile->setEnabled(FileExists(compiletool)); });
    trap([&] { ui->cmdDecompile->setEnabled(FileExists(decompiletool)); });
    trap([&] { ui->cmdSubAC->setVisible(true); });
    trap([&] { ui->List3->setEnabled(true); });
    trap([&] { ui->FrameFSAC->setTitle(toQString("AI Aircraft missing from FS200" + std::to_string(fsmode))); });
}

void frmMain::chooseMode(std::int16_t mode) noexcept {
    sset(keys::fsMode, mode);
    readsettings();
    setupformwithcurrentmode();
}

void frmMain::optFS2k2_Click() noexcept {
    chooseMode(2);
}

void frmMain::optFS2k4_Click() noexcept {
    chooseMode(4);
}

void frmMain::cmdSettings_Click() noexcept {
    const StandardTrap trap{"sub cmdsettings_click", module};
    trap([&] {
        frmSettings form(this);
        form.exec();
    });
    trap([&] {
        if (ui->List1->currentRow() >= 0) { // without one there is nothing to show anew
            displaylegs(true, ui->List1->currentItemData(), "");
        }
    });
}

void frmMain::picClunk_Click() noexcept {
    const StandardTrap trap{"sub picclunk_click", module};
    trap([&] {
        fSHAREDAbout form(this);
        form.exec();
    });
}

void frmMain::errorexit(std::string_view message) noexcept {
    const StandardTrap trap{"sub errorexit", module};
    trap([&] { host().message(message); });
    trap([&] { logit(message); });
    trap([&] { exitprog(); });
}

void frmMain::exitprog() noexcept {
    const StandardTrap trap{"sub exitprog", module};
    savesettings(settingsFile()); // ahead of the question: settings are saved whatever the answer
    bool leave = !unsavedchanges; // a question that fails is no Yes
    trap([&] {
        if (unsavedchanges) {
            leave = host().askYesNo("If you exit now you will lose your changes.  Are you sure?");
        }
    });
    if (!leave) {
        return;
    }
    trap([&] { busymouse(); });
    trap([&] {
        aircraft.clear();
        aircraftcount = 0;
        fsaircraft.clear();
        fsaircraftcount = 0;
    });
    trap([&] { normalmouse(); });
    trap([&] { dumpactions(); });
    trap([&] { hide(); });
    trap([&] { host().pumpEvents(Pump::PaintAndTimers); });
    endProcess(0);
}

void frmMain::endProcess(int code) noexcept {
    m_ended = true;
    stopUpdater();
    QCoreApplication::exit(code);
}

void frmMain::cmdExit_Click() noexcept {
    const StandardTrap trap{"sub cmdexit_click", module};
    trap([&] { exitprog(); });
}

void frmMain::form_queryunload() noexcept {
    const StandardTrap trap{"sub form_queryunload", module};
    trap([&] { exitprog(); });
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (m_running > 0) {
        m_closeWaits = true;
        event->ignore();
        return;
    }
    if (!m_ended) {
        // The close box closes the window whatever the answer: No merely skips the clearing up. It is meant.
        form_queryunload();
        if (!m_ended) {
            endProcess(0); // the program goes with its one window
        }
    }
    event->accept();
}

void frmMain::settimetableicao(std::string_view icao) {
    m_timetableicao = icao;
    ui->cmdPrint->setEnabled(!m_timetableicao.empty());
}

} // namespace vantor
