// Shell: the main window, its dialogs and the settings of the application.
// The buttons under the lists of schedules and legs, and Find in the two combo boxes.
#pragma once

#include "core/records.h"
#include "foundation/trap.h"

#include <optional>
#include <string>

class QAbstractButton;
class QWidget;

namespace vantor {

namespace Ui {
class LegsBox;
class SchedulesBox;
} // namespace Ui
class ComboBox;
class CommandRunner;
class Lists;
struct Workspace;

/// Adds, copies, edits and deletes schedules and legs.
class ScheduleCommands {
  public:
    /// What they read, fill and press in the window.
    struct Controls {
        Ui::SchedulesBox& schedules;
        Ui::LegsBox& legs;
        ComboBox* cmbAC;
        ComboBox* cmbICAO;
        QAbstractButton* cmdFind0;
        QAbstractButton* cmdFind1;
    };

    /// Connects the buttons. `owner` is the parent of the dialogs; all of these must outlive the commands.
    ScheduleCommands(QWidget& owner, const Controls& ui, Workspace& workspace, CommandRunner& runner, Lists& lists);

  private:
    std::string add(const StandardTrap& trap);
    std::string copy(const StandardTrap& trap);
    std::string edit(const StandardTrap& trap);
    std::string toggleSelected(const StandardTrap& trap);
    std::string editLeg(const StandardTrap& trap);
    std::string toggleSelectedLegs(const StandardTrap& trap);
    std::string findAircraft(const StandardTrap& trap);
    std::string findAirport(const StandardTrap& trap);

    [[nodiscard]] std::optional<ScheduleRec> askForEdit(const ScheduleRec& schedule, int startRow = 0);

    QWidget& m_owner;
    Controls m_ui;
    Workspace& m_workspace;
    Lists& m_lists;
};

} // namespace vantor
