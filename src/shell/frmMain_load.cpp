// frmMain: the commands that move traffic between the files and the tables.
#include "core/aircraft_file.h"
#include "core/combo_rows.h"
#include "core/flightplans_writer.h"
#include "core/load_pipeline.h"
#include "core/tables.h"
#include "foundation/host.h"
#include "foundation/log.h"
#include "foundation/progress.h"
#include "foundation/trap.h"
#include "platform/file_dialogs.h"
#include "platform/qt_host.h"
#include "shell/application_settings.h"
#include "shell/frmMain.h"
#include "shell/frmSplash.h"
#include "simulator/fs_aircraft.h"
#include "simulator/missing_aircraft.h"
#include "ui_frmMain.h"

#include <QMessageBox>

namespace vantor {

namespace {
constexpr std::string_view module = "frmMain";
} // namespace

// What a load fills in the window, behind its splash. The splash goes with it, also when a reader raises.
class frmMain::SplashSteps final : public LoadSteps {
  public:
    explicit SplashSteps(frmMain& form) : m_form(form), m_splash(&form) {}
    ~SplashSteps() override { close(); }
    SplashSteps(const SplashSteps&) = delete;
    SplashSteps& operator=(const SplashSteps&) = delete;

    void show() {
        m_splash.show();
        host().pumpEvents(Pump::PaintAndTimers);
    }
    void close() {
        m_splash.hide();
        host().pumpEvents(Pump::PaintAndTimers);
    }

    Canvas* progress() override { return m_splash.progress(); }
    void loadSimulatorAircraft() override { LoadFSAircraft(progress()); }
    void listMissingAircraft() override { m_form.ui->List3->setRows(checkmissing()); }
    void fillAircraftList() override {
        m_form.ui->cmbAC->setRows(aircraftRows(true));
        if (m_form.ui->cmbAC->currentRow() < 0) {
            m_form.ui->cmbAC->setCurrentRow(0);
        }
    }
    void fillAirportList() override {
        m_form.ui->cmbICAO->setRows(airportRows());
        if (airportcount > 0) {
            m_form.ui->cmbICAO->setCurrentRow(0);
        }
    }

  private:
    frmMain& m_form;
    frmSplash m_splash;
};

void frmMain::selectFirstAircraft() {
    if (ui->cmbAC->rowCount() > 0) {
        ui->cmbAC->setCurrentRow(0);
    }
}

void frmMain::loaddata() {
    const Running running(*this);
    ui->cmbAC->clear();
    ui->cmbICAO->clear();
    ui->List1->clear();
    ui->List2->clear();
    ui->List3->clear();
    {
        SplashSteps splash(*this);
        busymouse();
        splash.show();
        showprogressstring(splash.progress(), 0, 100, "Initialising");
        // Derived from the default file alone: what the settings name instead plays no part. It is meant.
        plansuffix = GetSuffix(defaultFiles().flightplans);
        const TrafficFiles files = configuredFiles(defaultFiles());
        aircraftname = aircraftfile = files.aircraft;
        airportsname = airportsfile = files.airports;
        flightsname = flightplansfile = files.flightplans;
        loadAllTraffic(splash);
        disablelegbuttons();
        disableschedbuttons();
    }
    selectFirstAircraft();
    normalmouse();
    logit("Startup complete");
}

void frmMain::cmdReload_Click() noexcept {
    const StandardTrap trap{"sub cmdreload_click", module};
    bool sure = !unsavedchanges; // a question that fails is no Yes
    trap([&] {
        if (unsavedchanges) {
            sure = host().askYesNo("You will lose any changes if you do this. Are you sure?");
        }
    });
    if (sure) {
        trap([&] { loaddata(); });
    }
}

void frmMain::cmdLoadFlightPlan_Click() noexcept {
    // Nothing catches a fault of this command: it ends the program, unlike one of "Load Default Plans". It is meant.
    try {
        cSharedFileSel selection;
        selection.Filepattern("*.TXT");
        selection.SetCaption("Choose a flight plan");
        selection.GetFilename();
        if (!selection.Cancelled()) {
            loadChosen(selection.Path(), selection.Filename());
        }
    } catch (...) {
        endFatally(currentError());
    }
}

void frmMain::loadChosen(const std::string& folder, const std::string& name) {
    const std::string file = folder + "\\" + name;
    flightsname = file;
    plansuffix = GetSuffix(name);
    {
        SplashSteps splash(*this);
        if (plansuffix.empty()) {
            busymouse();
            splash.show();
        } else if (host().askYesNo("Do you want to load the associated aircraft and airport files?")) {
            aircraftname = aircraftfile = folder + "\\Aircraft" + plansuffix + ".txt";
            airportsname = airportsfile = folder + "\\Airports" + plansuffix + ".txt";
            busymouse();
            splash.show();
            showprogressstring(splash.progress(), 0, 100, "Initialising");
            host().pumpEvents(Pump::PaintAndTimers);
            loadAssociatedFiles(splash);
        }
        ui->cmdSaveFlights->setText(QStringLiteral("Save &Flights"));
        ui->cmdSaveAircraft->setText(QStringLiteral("Sa&ve Aircraft"));
        ui->List1->clear();
        ui->List2->clear();
        ui->List3->clear();
        loadChosenFlightPlans(splash, file);
        disablelegbuttons();
        disableschedbuttons();
    }
    selectFirstAircraft();
    normalmouse();
}

void frmMain::endFatally(const Error& error) noexcept {
    const StandardTrap trap{"sub cmdloadflightplan_click", module};
    trap([&] {
        host().setPointer(Pointer::Normal);
        QMessageBox box(QMessageBox::Critical, QStringLiteral("Vantor"), QString(), QMessageBox::Ok, this);
        box.setObjectName(QStringLiteral("fatalBox"));
        box.setTextFormat(Qt::PlainText);
        box.setText(boxText(error.description()));
        box.exec();
    });
    trap([&] {
        logaction(error.description() + "(" + std::to_string(error.number()) + ")", "sub cmdloadflightplan_click",
                  module);
    });
    trap([&] { dumpactions(); });
    trap([&] { hide(); });
    endProcess(1);
}

void frmMain::cmdSaveFlights_Click() noexcept {
    const StandardTrap trap{"sub cmdsaveflights_click", module};
    bool overwrite = false;
    trap([&] { overwrite = host().askYesNo("Overwrite " + flightsname + "?"); });
    if (!overwrite) {
        trap([&] { host().message("Save cancelled"); });
        return;
    }
    trap([&] { busymouse(); });
    savesc(flightsname);
    trap([&] { normalmouse(); });
    unsavedchanges = false;
    m_changesGivenUp = false;
    trap([&] { host().message("Flight plans saved to " + flightsname); });
}

void frmMain::cmdSaveAircraft_Click() noexcept {
    const StandardTrap trap{"sub cmdsaveaircraft_click", module};
    bool overwrite = false;
    trap([&] { overwrite = host().askYesNo("Overwrite " + aircraftname + "?"); });
    if (!overwrite) {
        trap([&] { host().message("Save Cancelled"); }); // a capital here, unlike the flight plans'; it is meant
        return;
    }
    trap([&] { busymouse(); });
    saveaircraft();
    trap([&] { normalmouse(); });
    // It names the file in use, although the save goes to its fixed name; it is meant.
    trap([&] { host().message("Aircraft saved to " + aircraftname); });
}

} // namespace vantor
