// Shell: the main window, its dialogs and the settings of the application.
// Repairs of the aircraft against the simulator, and another aircraft for the selected schedules.
#pragma once

#include "foundation/trap.h"

#include <string>
#include <string_view>

class QAbstractButton;
class QWidget;

namespace vantor {

namespace Ui {
class AircraftBox;
}
class CommandRunner;
class ListBox;
class Lists;
struct Workspace;

/// Substitutes, adds, deletes and swaps aircraft.
class AircraftCommands {
  public:
    /// What they read, fill and press in the window.
    struct Controls {
        Ui::AircraftBox& aircraft;
        ListBox* List1;
        ListBox* List3;
        QAbstractButton* cmdSubAC;
        QAbstractButton* cmdSwapAC;
    };

    /// Connects the buttons. `owner` is the parent of the dialogs; all of these must outlive the commands.
    AircraftCommands(QWidget& owner, const Controls& ui, Workspace& workspace, CommandRunner& runner, Lists& lists);

  private:
    std::string substitute(const StandardTrap& trap);
    std::string addFromSimulator(const StandardTrap& trap);
    std::string deleteChosen(const StandardTrap& trap);
    std::string swap(const StandardTrap& trap);

    [[nodiscard]] bool takeSubstitute(const StandardTrap& trap, const std::string& substitutetext);
    void refillAircraft();

    QWidget& m_owner;
    Controls m_ui;
    Workspace& m_workspace;
    Lists& m_lists;
};

} // namespace vantor
