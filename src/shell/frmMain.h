// Shell: the main window, its dialogs and the settings of the application.
// frmMain, the one main window. Its commands stand in the files frmMain_*.cpp, each short: the work is in rooms below.
#pragma once

#include "core/load_pipeline.h"
#include "foundation/error.h"
#include "schedule/list_rows.h"

#include <QMainWindow>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

class QAbstractButton;
class QTimer;

namespace vantor {

namespace Ui {
class frmMain;
}
class TransferControl;
class fSHAREDUpdater;
struct BulkOutcome;

class frmMain : public QMainWindow {
    Q_OBJECT
  public:
    explicit frmMain(QWidget* parent = nullptr);
    ~frmMain() override;

    /// Form_Load: a new log, the settings, and the window set up for the mode. No traffic is loaded.
    void formLoad();

    /// Shows the message, logs it and ends the program.
    void errorexit(std::string_view message) noexcept;
    /// Saves the settings, asks about unsaved changes, and on Yes (or without any) ends the program.
    void exitprog() noexcept;
    /// Whether the program has ended, or is about to once the events at hand have run.
    [[nodiscard]] bool ended() const noexcept { return m_ended; }
    /// Options, tool buttons and captions for fsmode as it stands.
    void setupformwithcurrentmode() noexcept;

    /// Fills List1 and empties List2; `third` is filled by no caller and read by nothing. `keepindex` becomes the
    /// current row without a click.
    void displaylist(std::string_view icao, std::string_view ac, std::string_view third, bool unique, int keepindex);
    /// Fills List2 with the legs of all schedules of one aircraft (a row or code), at one airport if `icao` tells one.
    void fillsecondlist(std::string_view ac, std::string_view icao) noexcept;
    /// Adds the legs of one schedule to List2; `icao` is a bare code or empty.
    void displaylegs(bool clearfirst, std::int32_t recnum, std::string_view icao) noexcept;
    /// Shows the legs of what the current row of List1 stands for.
    void displayselected();
    void enablelegbuttons() noexcept;
    void disablelegbuttons() noexcept;
    void enableschedbuttons() noexcept;
    void disableschedbuttons() noexcept;

    /// The airport of the timetable shown in List2, empty for none; setting it enables or disables cmdPrint.
    [[nodiscard]] const std::string& timetableicao() const noexcept { return m_timetableicao; }
    void settimetableicao(std::string_view icao);

    /// Fills List2 with the timetable of an airport (a row or code) and enables cmdPrint.
    void displaytimetable(std::string_view icao) noexcept;
    /// Fills List2 with the gate table of an airport (a row or code). The printing stays as it was.
    void displaymaxgates(std::string_view icao) noexcept;

    /// Loads the default files of the mode; what a reader raises comes out of it.
    void loaddata();

    /// Set by every command that changes schedules, cleared by cmdSaveFlights alone.
    bool unsavedchanges = false;
    /// The files in use, as messages show them.
    std::string flightsname;
    std::string aircraftname;
    std::string airportsname;
    /// Filters and kind of the listing shown, handed back to displaylist by every refresh.
    std::string currenticao;
    std::string currentac;
    bool currentunique = false;

    /// What the updater's transfers go through, asked for once at the first need; empty for the program's own control.
    std::function<std::unique_ptr<TransferControl>()> transferControl;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    // A command that runs; a close that comes meanwhile waits for its end.
    class Running {
      public:
        explicit Running(frmMain& form) : m_form(form) { ++m_form.m_running; }
        ~Running();
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

      private:
        frmMain& m_form;
    };

    // Gives a button its command.
    void command(QAbstractButton* button, std::function<void(frmMain&)> handler);
    // Runs a command unless one runs already.
    void runCommand(const std::function<void(frmMain&)>& handler);
    void connectCommands();
    void connectListCommands();
    void connectScheduleCommands();
    void connectViewCommands();
    void connectUtilityCommands();
    void connectAircraftCommands();
    void connectToolCommands();
    void connectShortcuts();
    void connectUpdateCommands();
    void fitPanel();

    // Life
    void cmdExit_Click() noexcept;
    void cmdSettings_Click() noexcept;
    void optFS2k2_Click() noexcept;
    void optFS2k4_Click() noexcept;
    void picClunk_Click() noexcept;
    void form_queryunload() noexcept;
    void chooseMode(std::int16_t mode) noexcept;

    // Lists
    void cmdListall_Click() noexcept;
    void cmdListICAO_Click() noexcept;
    void cmdListACnum_Click() noexcept;
    void cmdListUniqueAC_Click() noexcept;
    void cmdListUniqueICAO_Click() noexcept;
    void cmbAC_Click() noexcept;
    void cmbICAO_Click() noexcept;
    void List1_Click() noexcept;
    void List2_Click() noexcept;
    void List3_Click() noexcept;
    void showLegs(LegListing listing, bool clearfirst);

    // Schedules, legs and Find
    [[nodiscard]] std::optional<ScheduleRec> edit(const ScheduleRec& schedule, int startRow = 0);
    void cmdAddSchedule_Click() noexcept;
    void cmdCopy_Click() noexcept;
    void cmdEditSchedule_Click() noexcept;
    void cmdDeleteSchedule_Click() noexcept;
    void cmdEditLeg_Click() noexcept;
    void cmdDeleteLeg_Click() noexcept;
    void cmdFind_Click(int index) noexcept;

    // Views of one airport
    void cmdTimeTable_Click() noexcept;
    void cmdPrint_Click() noexcept;
    void cmdGates_Click() noexcept;
    void cmdChart_Click() noexcept;
    void cmdMap_Click() noexcept;

    // Utilities panel
    void hideframes() noexcept;
    void showUtilityFrame(QWidget& frame) noexcept;
    void finishBulkChange(const BulkOutcome& outcome) noexcept;
    void cmdChangeFL_Click() noexcept;
    void cmdUpdateATCPercent_Click() noexcept;
    void cmdDeleteByICAO_Click() noexcept;
    void cmbPC1_Click() noexcept;
    void cmdDoSplit_Click() noexcept;
    void cmdSplitAC_Click() noexcept;

    // Aircraft
    void takeSubstitute(const std::string& substitutetext) noexcept;
    void cmdSubAC_Click() noexcept;
    void cmdAddFS_Click() noexcept;
    void cmdDeleteAC_Click() noexcept;
    void cmdSwapAC_Click() noexcept;

    // The simulator's tool and the aircraft report
    void cmdCompile_Click() noexcept;
    void cmdDecompile_Click() noexcept;
    void cmdACReport_Click() noexcept;

    // Newer versions
    [[nodiscard]] fSHAREDUpdater& updater();
    void cmdCheckUpdate_Click() noexcept;
    void Timer3_Timer() noexcept;
    [[nodiscard]] bool restartForInstall() noexcept;
    void stopUpdater() noexcept;

    // Loading and saving
    class SplashSteps;
    void cmdReload_Click() noexcept;
    void cmdLoadFlightPlan_Click() noexcept;
    void loadChosen(const std::string& folder, const std::string& name);
    void cmdSaveFlights_Click() noexcept;
    void cmdSaveAircraft_Click() noexcept;
    void selectFirstAircraft();
    void endFatally(const Error& error) noexcept;
    void endProcess(int code) noexcept;

    std::unique_ptr<Ui::frmMain> ui;
    // True while displaylist itself moves the current row of List1.
    bool m_ignorelist1click = false;
    std::string m_timetableicao;
    int m_running = 0;                   // commands that run now
    QTimer* m_timer3 = nullptr;          // the form's child
    fSHAREDUpdater* m_updater = nullptr; // the form's child, from the first need on
    bool m_changesGivenUp = false;       // the user agreed to lose them to an update
    bool m_opened = false;
    bool m_ended = false;
    bool m_closeWaits = false;
};

} // namespace vantor
