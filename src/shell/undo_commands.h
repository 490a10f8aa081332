// Shell: the main window, its dialogs and the settings of the application.
// Undo and Redo: what the journal took down goes back into the tables, and the window shows it.
#pragma once

#include "core/undo.h"
#include "foundation/trap.h"

#include <functional>
#include <string>

namespace vantor {

class ComboBox;
class CommandRunner;
class ListBox;
class Lists;
struct Workspace;

class UndoCommands {
  public:
    /// What they read, fill and press in the window.
    struct Controls {
        ComboBox* cmbAC;
        ListBox* List1;
        ListBox* List3;
    };

    /// All must outlive the group.
    UndoCommands(const Controls& ui, Workspace& workspace, CommandRunner& runner, Lists& lists);

    /// The caption of the command, as in "Undo Delete 3 schedules"; "Undo" alone where there is nothing to undo.
    [[nodiscard]] static std::string undoCaption();
    [[nodiscard]] static std::string redoCaption();
    /// Each is a command of its own: nothing happens while another one runs.
    void undo();
    void redo();

  private:
    void go(Procedure procedure, std::optional<StepRecords> (*way)(), std::string_view done);
    void show(const StepRecords& changed);

    Controls m_ui;
    Workspace& m_workspace;
    CommandRunner& m_runner;
    Lists& m_lists;
};

} // namespace vantor
