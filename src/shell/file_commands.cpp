#include "shell/file_commands.h"

#include "core/aircraft_file.h"
#include "core/combo_rows.h"
#include "core/flightplans_writer.h"
#include "core/load_pipeline.h"
#include "core/tables.h"
#include "foundation/busy_pointer.h"
#include "foundation/disk.h"
#include "foundation/log.h"
#include "foundation/path_text.h"
#include "foundation/progress.h"
#include "platform/file_dialogs.h"
#include "platform/qt_host.h"
#include "shell/application_settings.h"
#include "shell/command_runner.h"
#include "shell/frmSplash.h"
#include "shell/life.h"
#include "shell/lists.h"
#include "shell/rescue_keeper.h"
#include "shell/status_line.h"
#include "shell/workspace.h"
#include "simulator/fs_aircraft.h"
#include "simulator/missing_aircraft.h"
#include "ui_traffic_box.h"

#include <QMessageBox>

#include <optional>

namespace vantor {

namespace {

constexpr std::string_view module = "frmMain";
constexpr Procedure loadSelectedProcedure{"sub cmdloadflightplan_click", module};

void pumpPaint() {
    host().pumpEvents(Pump::PaintAndTimers);
}

} // namespace

// What a load fills in the window, behind its splash. The splash goes with it, also when a reader raises.
class FileCommands::SplashSteps final : public LoadSteps {
  public:
    SplashSteps(QWidget& window, const Controls& ui) : m_ui(ui), m_splash(&window) {}
    ~SplashSteps() override {
        m_splash.hide();
        pumpPaint();
    }
    SplashSteps(const SplashSteps&) = delete;
    SplashSteps& operator=(const SplashSteps&) = delete;

    void show() {
        busymouse();
        m_splash.show();
        pumpPaint();
    }

    Canvas* progress() override { return m_splash.progress(); }
    void loadSimulatorAircraft() override { LoadFSAircraft(progress()); }
    void listMissingAircraft() override { m_ui.List3->setRows(checkmissing()); }
    void fillAircraftList() override {
        m_ui.cmbAC->setRows(aircraftRows(true));
        if (m_ui.cmbAC->currentRow() < 0) {
            m_ui.cmbAC->setCurrentRow(0);
        }
    }
    void fillAirportList() override {
        m_ui.cmbICAO->setRows(airportRows());
        if (airportcount > 0) {
            m_ui.cmbICAO->setCurrentRow(0);
        }
    }

  private:
    const Controls& m_ui;
    frmSplash m_splash;
};

FileCommands::FileCommands(QWidget& window, const Controls& ui, Workspace& workspace, CommandRunner& runner,
                           Lists& lists, Life& life, RescueKeeper& rescue, StatusLine& status)
    : m_window(window), m_ui(ui), m_workspace(workspace), m_runner(runner), m_lists(lists), m_life(life),
      m_rescue(rescue), m_status(status),
      m_plans(window, *ui.traffic.cmdLoadFlightPlan, [this](const std::string& file) { loadGiven(file); }) {
    using Self = FileCommands;
    runner.command(ui.traffic.cmdReload, {"sub cmdreload_click", module}, this, &Self::reload);
    runner.command(ui.traffic.cmdLoadFlightPlan, loadSelectedProcedure, this, &Self::loadSelected);
    runner.command(ui.traffic.cmdSaveFlights, {"sub cmdsaveflights_click", module}, this, &Self::saveFlights);
    runner.command(ui.traffic.cmdSaveAircraft, {"sub cmdsaveaircraft_click", module}, this, &Self::saveAircraft);
}

void FileCommands::loaddata() {
    RescueKeeper::Loading loading(m_rescue, m_workspace.unsavedchanges);
    loadAll(loading, [] {
        // Quirk: derived from the default file alone; what the settings name instead plays no part.
        plansuffix = GetSuffix(defaultFiles().flightplans);
        return configuredFiles(defaultFiles());
    });
    rememberLoaded();
}

std::string FileCommands::restore(const RescueKeeper::Offer& offer) {
    const RescueNote& note = offer.note;
    const auto useOriginals = [&] {
        m_workspace.aircraftname = aircraftfile = note.aircraft;
        m_workspace.flightsname = flightplansfile = note.flightplans;
    };
    try {
        RescueKeeper::Loading loading(m_rescue, true);
        loadAll(loading, [&] {
            plansuffix = note.plansuffix;
            return TrafficFiles{offer.aircraft, note.airports, offer.flightplans};
        });
    } catch (...) {
        useOriginals(); // no save must go to the copy
        throw;
    }
    useOriginals();
    m_workspace.stamps.set(note.aircraft, note.aircraftStamp);
    m_workspace.stamps.set(note.flightplans, note.flightplansStamp);
    m_workspace.unsavedchanges = true;
    rememberLoaded();
    m_rescue.restored();
    m_workspace.loadedMode = fsmode;
    return "Restored unsaved changes of " + note.when;
}

void FileCommands::loadAll(RescueKeeper::Loading& loading, const std::function<TrafficFiles()>& chooseFiles) {
    const CommandRunner::Running running(m_runner);
    loading.takesAircraft();
    m_ui.cmbAC->clear();
    m_ui.cmbICAO->clear();
    m_lists.clear();
    m_ui.List3->clear();
    {
        SplashSteps splash(m_window, m_ui);
        splash.show();
        showprogressstring(splash.progress(), 0, 100, "Initialising");
        const TrafficFiles files = chooseFiles();
        m_workspace.aircraftname = aircraftfile = files.aircraft;
        m_workspace.airportsname = airportsfile = files.airports;
        m_workspace.flightsname = flightplansfile = files.flightplans;
        m_workspace.stamps.remember(aircraftfile); // ahead of the reading: what changes meanwhile is another file
        m_workspace.stamps.remember(flightplansfile);
        loadAllTraffic(splash);
        m_lists.disableButtons();
    }
    m_ui.cmbAC->setCurrentRow(0);
    normalmouse();
    logit("Startup complete");
}

std::string FileCommands::reload(const StandardTrap& /*trap*/) {
    if (!m_workspace.unsavedchanges || agreesToLose()) {
        loaddata();
        return loaded();
    }
    return {};
}

bool FileCommands::agreesToLose() const {
    return host().askYesNo("You will lose any changes if you do this. Are you sure?");
}

std::string FileCommands::loadSelected(const StandardTrap& trap) {
    cSharedFileSel selection;
    selection.Filepattern("*.TXT");
    selection.SetCaption("Choose a flight plan");
    selection.GetExistingFilename();
    return selection.Cancelled() ? "" : loadOrEnd(trap, selection.Path(), selection.Filename());
}

void FileCommands::loadGiven(const std::string& file) {
    m_runner.run(loadSelectedProcedure, [&](const StandardTrap& trap) -> std::string {
        if (!FileExists(file)) {
            return "There is no " + file;
        }
        // The aircraft may go as well, with the associated files.
        if ((m_workspace.unsavedchanges || m_rescue.pending()) && !agreesToLose()) {
            return {};
        }
        const std::size_t end = file.rfind('\\');
        return loadOrEnd(trap, file.substr(0, end), file.substr(end + 1));
    });
}

std::string FileCommands::loadOrEnd(const StandardTrap& trap, const std::string& folder, const std::string& name) {
    // Quirk: no trap catches a fault of this command: it ends the program, unlike one of "Load Default Plans".
    try {
        loadChosen(folder, name);
        return loaded();
    } catch (...) {
        endFatally(trap, currentError());
    }
    return {};
}

std::string FileCommands::loaded() {
    m_workspace.loadedMode = fsmode;
    PlanFiles::remember(m_workspace.flightsname);
    return "Loaded " + m_workspace.flightsname;
}

void FileCommands::loadChosen(const std::string& folder, const std::string& name) {
    const std::string file = folder + "\\" + name;
    RescueKeeper::Loading loading(m_rescue, false); // nobody was asked about changes
    m_workspace.flightsname = file;
    m_workspace.stamps.remember(file);
    plansuffix = GetSuffix(name);
    {
        SplashSteps splash(m_window, m_ui);
        if (plansuffix.empty()) {
            splash.show();
        } else if (host().askYesNo("Do you want to load the associated aircraft and airport files?")) {
            m_workspace.aircraftname = aircraftfile = folder + "\\Aircraft" + plansuffix + ".txt";
            m_workspace.airportsname = airportsfile = folder + "\\Airports" + plansuffix + ".txt";
            splash.show();
            showprogressstring(splash.progress(), 0, 100, "Initialising");
            pumpPaint();
            loading.takesAircraft();
            m_workspace.stamps.remember(aircraftfile);
            loadAssociatedFiles(splash);
        }
        m_ui.traffic.cmdSaveFlights->setText(QStringLiteral("Save &Flights"));
        m_ui.traffic.cmdSaveAircraft->setText(QStringLiteral("Sa&ve Aircraft"));
        m_lists.clear();
        m_ui.List3->clear();
        loadChosenFlightPlans(splash, file);
        m_lists.disableButtons();
    }
    rememberLoaded();
    m_ui.cmbAC->setCurrentRow(0);
    normalmouse();
}

// Changes from before a load count as unsaved after it, so that no undo may clear their flag.
void FileCommands::rememberLoaded() {
    m_workspace.savedstate = m_workspace.unsavedchanges ? -1 : journal().state();
}

void FileCommands::endFatally(const StandardTrap& trap, const Error& error) {
    m_rescue.keepNow();
    trap([&] {
        host().setPointer(Pointer::Normal);
        QMessageBox box(QMessageBox::Critical, QStringLiteral("Vantor"), QString(), QMessageBox::Ok, &m_window);
        box.setObjectName(QStringLiteral("fatalBox"));
        box.setTextFormat(Qt::PlainText);
        box.setText(boxText(error.description()));
        box.exec();
    });
    trap(logaction, error.description() + "(" + std::to_string(error.number()) + ")", loadSelectedProcedure.name,
         loadSelectedProcedure.module);
    trap(dumpactions);
    m_window.hide();
    m_life.endProcess(1);
}

// Whether a save may overwrite a file: one that another program has written is asked about.
bool FileCommands::mayOverwrite(const StandardTrap& trap, std::string_view file, std::string_view shown) {
    bool may = true;
    trap([&] {
        if (m_workspace.stamps.changed(file)) {
            may = false; // a question that fails is no Yes
            may = host().askYesNo(std::string(shown) +
                                  " was changed by another program since it was loaded. Overwrite it?");
        }
    });
    return may;
}

std::string FileCommands::saveFlights(const StandardTrap& trap) {
    bool overwrite = false;
    trap.set(overwrite, &Host::askYesNo, host(), "Overwrite " + m_workspace.flightsname + "?");
    if (!overwrite || !mayOverwrite(trap, m_workspace.flightsname, m_workspace.flightsname)) {
        host().message("Save cancelled");
        return {};
    }
    std::optional<Error> failure;
    {
        const BusyPointer busy{trap};
        const StatusLine::Work work(m_status, "Saving the flight plans");
        failure = savesc(m_workspace.flightsname, work.bar());
    }
    if (failure) {
        m_rescue.keepNow();
        const std::string what = "Flight plans not saved to " + m_workspace.flightsname + ": " + failure->description();
        host().message(what);
        return what;
    }
    m_workspace.unsavedchanges = false;
    m_workspace.savedstate = journal().state();
    m_workspace.stamps.remember(m_workspace.flightsname);
    m_rescue.savedFlightplans();
    const std::string did = "Flight plans saved to " + m_workspace.flightsname;
    host().message(did);
    return did;
}

std::string FileCommands::saveAircraft(const StandardTrap& trap) {
    bool overwrite = false;
    trap.set(overwrite, &Host::askYesNo, host(), "Overwrite " + m_workspace.aircraftname + "?");
    if (!overwrite || !mayOverwrite(trap, savedAircraftFile, m_workspace.aircraftname)) {
        host().message("Save Cancelled"); // Quirk: a capital here, unlike the flight plans'.
        return {};
    }
    std::optional<Error> failure;
    {
        const BusyPointer busy{trap};
        const StatusLine::Work work(m_status, "Saving the aircraft");
        failure = saveaircraft(work.bar());
    }
    // Quirk: it names the file in use, although the save goes to its fixed name.
    if (failure) {
        m_rescue.keepNow();
        const std::string what = "Aircraft not saved to " + m_workspace.aircraftname + ": " + failure->description();
        host().message(what);
        return what;
    }
    m_workspace.stamps.remember(savedAircraftFile);
    m_rescue.savedAircraft();
    const std::string did = "Aircraft saved to " + m_workspace.aircraftname;
    host().message(did);
    return did;
}

} // namespace vantor
