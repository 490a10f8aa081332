// Shell: the main window, its dialogs and the settings of the application.
// The buttons under the lists of schedules and legs, and Find in the two combo boxes.
#pragma once

#include "core/records.h"
#include "foundation/trap.h"

#include <optional>

class QWidget;

namespace vantor {

namespace Ui {
class frmMain;
}
class ComboBox;
class CommandRunner;
class Lists;
struct Workspace;

/// Adds, copies, edits and deletes schedules and legs.
class ScheduleCommands {
  public:
    /// Connects the buttons. `owner` is the parent of the dialogs; all of these must outlive the commands.
    ScheduleCommands(QWidget& owner, Ui::frmMain& ui, Workspace& workspace, CommandRunner& runner, Lists& lists);

  private:
    void add(const StandardTrap& trap);
    void copy(const StandardTrap& trap);
    void edit(const StandardTrap& trap);
    void toggleSelected(const StandardTrap& trap);
    void editLeg(const StandardTrap& trap);
    void toggleSelectedLegs(const StandardTrap& trap);
    void findAircraft(const StandardTrap& trap);
    void findAirport(const StandardTrap& trap);

    [[nodiscard]] std::optional<ScheduleRec> askForEdit(const ScheduleRec& schedule, int startRow = 0);

    QWidget& m_owner;
    Ui::frmMain& m_ui;
    Workspace& m_workspace;
    Lists& m_lists;
};

} // namespace vantor
