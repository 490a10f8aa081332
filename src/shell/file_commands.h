// Shell: the main window, its dialogs and the settings of the application.
// The commands that move traffic between the files and the tables.
#pragma once

#include "foundation/error.h"
#include "foundation/trap.h"
#include "shell/plan_files.h"
#include "shell/rescue_keeper.h"

#include <functional>
#include <string>
#include <string_view>

class QWidget;

namespace vantor {

namespace Ui {
class TrafficBox;
}
class ComboBox;
class CommandRunner;
class ListBox;
class Life;
class Lists;
class StatusLine;
struct TrafficFiles;
struct Workspace;

/// Loads and saves.
class FileCommands {
  public:
    /// What they read, fill and press in the window.
    struct Controls {
        Ui::TrafficBox& traffic;
        ComboBox* cmbAC;
        ComboBox* cmbICAO;
        ListBox* List3;
    };

    /// Connects the buttons. `window` is the parent of splash and boxes; all of these must outlive the commands.
    FileCommands(QWidget& window, const Controls& ui, Workspace& workspace, CommandRunner& runner, Lists& lists,
                 Life& life, RescueKeeper& rescue, StatusLine& status);

    /// Loads the default files of the mode; what a reader raises comes out of it.
    void loaddata();
    /// Loads the changes that were kept, against the files that they stand for: a save goes there. Gives what it did.
    std::string restore(const RescueKeeper::Offer& offer);
    /// Loads a flight plan file (a path) as "Load Selected Plans" does, once the user agreed to lose changes.
    void loadGiven(const std::string& file);

  private:
    std::string reload(const StandardTrap& trap);
    std::string loadSelected(const StandardTrap& trap);
    std::string saveFlights(const StandardTrap& trap);
    std::string saveAircraft(const StandardTrap& trap);

    class SplashSteps;
    std::string loadOrEnd(const StandardTrap& trap, const std::string& folder, const std::string& name);
    void loadChosen(const std::string& folder, const std::string& name);
    void loadAll(RescueKeeper::Loading& loading, const std::function<TrafficFiles()>& chooseFiles);
    [[nodiscard]] bool mayOverwrite(const StandardTrap& trap, std::string_view file, std::string_view shown);
    void rememberLoaded();
    [[nodiscard]] std::string loaded();
    [[nodiscard]] bool agreesToLose() const;
    void endFatally(const StandardTrap& trap, const Error& error);

    QWidget& m_window;
    Controls m_ui;
    Workspace& m_workspace;
    CommandRunner& m_runner;
    Lists& m_lists;
    Life& m_life;
    RescueKeeper& m_rescue;
    StatusLine& m_status;
    PlanFiles m_plans;
};

} // namespace vantor
