#include "shell/frmMain.h"

#include "core/settings_keys.h"
#include "core/tables.h"
#include "foundation/action_ring.h"
#include "foundation/busy_pointer.h"
#include "foundation/error.h"
#include "foundation/log.h"
#include "platform/code_page.h"
#include "shell/actions.h"
#include "shell/aircraft_commands.h"
#include "shell/application_settings.h"
#include "shell/artwork.h"
#include "shell/explorer_window.h"
#include "shell/fSHAREDAbout.h"
#include "shell/file_commands.h"
#include "shell/lists.h"
#include "shell/rescue_keeper.h"
#include "shell/rescue_offer.h"
#include "shell/schedule_commands.h"
#include "shell/status_line.h"
#include "shell/tool_commands.h"
#include "shell/undo_commands.h"
#include "shell/update_commands.h"
#include "shell/utility_commands.h"
#include "shell/view_commands.h"
#include "shell/window_boxes.h"
#include "ui_frmMain.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLayout>
#include <QStyle>

#include <utility>

namespace vantor {

namespace {
constexpr std::string_view module = "frmMain";
} // namespace

frmMain::frmMain(QWidget* parent)
    : QMainWindow(parent), ui(std::make_unique<Ui::frmMain>()), m_boxes(std::make_unique<WindowBoxes>()) {
    ui->setupUi(this);
    setUpBoxes();
    m_rescue = std::make_unique<RescueKeeper>(m_workspace);
    m_status = new StatusLine(this);
    ui->layMain->addWidget(m_status);
    makeGroups();
    connect(m_boxes->traffic.cmdExit, &QPushButton::clicked, this, [this] {
        m_runner.run({"sub cmdexit_click", module}, [this](const StandardTrap&) {
            exitprog();
            return std::string();
        });
    });
    connect(ui->picClunk, &PictureBox::clicked, this, [this] {
        m_runner.run({"sub picclunk_click", module}, [this](const StandardTrap&) {
            showAbout();
            return std::string();
        });
    });
    m_actions =
        std::make_unique<Actions>(*this, *m_boxes, m_runner, *m_lists, *m_views, *m_undo, *m_explorer, *m_status);
    connectStatus();
    m_offer = new RescueOffer(this);
    ui->layMain->insertWidget(ui->layMain->indexOf(m_status), m_offer);
    connect(m_offer, &RescueOffer::restoreClicked, this, &frmMain::restoreKept);
    m_rescue->whenOfferChanges([this] { m_offer->refresh(*m_rescue); });
}

frmMain::~frmMain() = default;

// In the order of the tab key, which goes from one control to the one that was made next.
void frmMain::setUpBoxes() {
    m_boxes->traffic.setupUi(ui->fraPlans);
    m_boxes->mode.setupUi(ui->frameFSMode);
    m_boxes->compile.setupUi(ui->FrameCompile);
    m_boxes->schedules.setupUi(ui->fraList1);
    m_boxes->legs.setupUi(ui->fraList2);
    m_boxes->aircraft.setupUi(ui->frameAC);
    m_boxes->airport.setupUi(ui->FrameIcao);
    m_boxes->missing.setupUi(ui->FrameFSAC);
    m_boxes->utilities.setupUi(ui->FrameUtils);
    setTabOrder(m_boxes->compile.cmdDecompile, ui->picClunk);
}

void frmMain::makeGroups() {
    auto& [trafficBox, modeBox, compileBox, schedulesBox, legsBox, aircraftBox, airportBox, missingBox, utilitiesBox] =
        *m_boxes;
    m_lists = std::make_unique<Lists>(Lists::Controls{schedulesBox, legsBox, aircraftBox, airportBox, ui->fraList1,
                                                      ui->fraList2, trafficBox.cmdListall, missingBox.List3,
                                                      utilitiesBox.txtICAO1},
                                      m_workspace, m_runner);
    m_schedules = std::make_unique<ScheduleCommands>(
        *this,
        ScheduleCommands::Controls{schedulesBox, legsBox, aircraftBox.cmbAC, airportBox.cmbICAO, aircraftBox.cmdFind0,
                                   airportBox.cmdFind1},
        m_workspace, m_runner, *m_lists);
    m_views = std::make_unique<ViewCommands>(*this, airportBox, legsBox.List2, legsBox.cmdPrint, m_runner, *m_lists);
    m_utilities = std::make_unique<UtilityCommands>(utilitiesBox, aircraftBox.cmbAC, airportBox.cmbICAO, m_workspace,
                                                    m_runner, *m_lists);
    m_aircraft =
        std::make_unique<AircraftCommands>(*this,
                                           AircraftCommands::Controls{aircraftBox, schedulesBox.List1, missingBox.List3,
                                                                      missingBox.cmdSubAC, schedulesBox.cmdSwapAC},
                                           m_workspace, m_runner, *m_lists);
    m_tools = std::make_unique<ToolCommands>(*this,
                                             ToolCommands::Controls{modeBox, compileBox, missingBox, ui->FrameFSAC,
                                                                    trafficBox.cmdSettings, schedulesBox.List1},
                                             m_workspace, m_runner, *m_lists, *m_status);
    m_files = std::make_unique<FileCommands>(
        *this, FileCommands::Controls{trafficBox, aircraftBox.cmbAC, airportBox.cmbICAO, missingBox.List3}, m_workspace,
        m_runner, *m_lists, *this, *m_rescue, *m_status);
    m_updates = std::make_unique<UpdateCommands>(*this, *trafficBox.cmdCheckUpdate, m_workspace, m_runner, *this);
    m_undo =
        std::make_unique<UndoCommands>(UndoCommands::Controls{aircraftBox.cmbAC, schedulesBox.List1, missingBox.List3},
                                       m_workspace, m_runner, *m_lists);
    m_explorer = std::make_unique<ExplorerWindow>(
        *this, ExplorerWindow::Controls{schedulesBox.List1, legsBox.List2, airportBox.cmbICAO}, m_workspace, m_runner,
        *m_lists, *m_undo);
}

void frmMain::connectStatus() {
    m_runner.ended = [this](const std::string& did, const std::string& fault) {
        if (!fault.empty()) {
            m_status->tellFault(fault);
        } else if (!did.empty()) {
            m_status->tell(did);
        }
        m_status->showState(m_workspace);
        m_status->showRows(*m_boxes->schedules.List1);
        m_explorer->commandEnded();
    };
    connect(m_status, &StatusLine::explorerWanted, this, [this] { m_explorer->open(); });
    connect(m_boxes->schedules.List1, &ListBox::rowClicked, m_status,
            [this] { m_status->showRows(*m_boxes->schedules.List1); });
}

void frmMain::formLoad() {
    try {
        m_utilities->fillShares();
        schedules = clsHashSC();
        airports = clsHashAP();
        setWindowTitle(toQString("Vantor " + appversion()));
        setWindowIcon(applicationIcon());
        beginLog("Vantor version " + appversion() + " starting.");
        LoadSettings(settingsFile());
        if (!modeChosen()) {
            host().message("Select FS2002 or FS2004 mode, then set up the file locations in the settings screen.");
            fsmode = keys::fsMode.fallback; // also where the store holds something that is no number
        }
        readsettings();
        m_tools->setupformwithcurrentmode();
        m_lists->settimetableicao("");
        m_status->showState(m_workspace); // the time offset above all
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
        m_updates->start();
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
    m_utilities->fitFrames();
    ui->panelContent->layout()->activate();
    // The panel only ever scrolls up and down: it is as wide as what it holds.
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, ui->panel);
    ui->panel->setFixedWidth(ui->panelContent->minimumSizeHint().width() + bar);
}

void frmMain::showAbout() {
    fSHAREDAbout form(this);
    form.exec();
}

void frmMain::restoreKept() {
    if (!m_rescue->offer()) {
        return;
    }
    m_runner.run({"restorekept", module}, [this](const StandardTrap&) {
        const RescueKeeper::Offer offer = *m_rescue->offer();
        if (!(m_workspace.unsavedchanges || m_rescue->pending()) ||
            host().askYesNo("You will lose any changes if you do this. Are you sure?")) {
            m_tools->chooseMode(offer.note.mode);
            return m_files->restore(offer);
        }
        return std::string();
    });
}

void frmMain::errorexit(std::string_view message) noexcept {
    const StandardTrap trap{"sub errorexit", module};
    trap(&Host::message, host(), message);
    trap(logit, message);
    exitprog();
}

void frmMain::exitprog() noexcept {
    const StandardTrap trap{"sub exitprog", module};
    savesettings(settingsFile()); // ahead of the question: settings are saved whatever the answer
    bool leave = !m_workspace.unsavedchanges;
    if (!leave) { // a question that fails is no Yes
        trap.set(leave, &Host::askYesNo, host(), "If you exit now you will lose your changes.  Are you sure?");
    }
    if (!leave) {
        return;
    }
    if (m_workspace.unsavedchanges) {
        giveUpChanges();
    }
    m_rescue->keepNow(); // what nobody was asked about
    m_rescue->stop();
    {
        const BusyPointer busy{trap};
        aircraft.clear();
        aircraftcount = 0;
        fsaircraft.clear();
        fsaircraftcount = 0;
    }
    trap(dumpactions);
    hide();
    trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
    endProcess(0);
}

void frmMain::giveUpChanges() noexcept {
    m_workspace.unsavedchanges = false;
    m_rescue->giveUp();
}

void frmMain::endProcess(int code) noexcept {
    m_ended = true;
    m_updates->stop();
    m_explorer->close();
    QCoreApplication::exit(code);
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (m_runner.holdsClose()) {
        event->ignore();
        return;
    }
    if (!m_ended) {
        // Quirk: the close box closes the window whatever the answer: No only skips the cleaning up.
        exitprog();
        if (!m_ended) {
            m_rescue->keepNow();
            endProcess(0); // the program goes with its one window
        }
    }
    event->accept();
}

} // namespace vantor
