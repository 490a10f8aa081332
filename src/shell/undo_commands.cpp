#include "shell/undo_commands.h"

#include "core/combo_rows.h"
#include "core/tables.h"
#include "foundation/busy_pointer.h"
#include "shell/command_runner.h"
#include "shell/lists.h"
#include "shell/workspace.h"
#include "simulator/missing_aircraft.h"

#include <algorithm>

namespace vantor {

namespace {

constexpr std::string_view module = "frmMain";

std::string caption(std::string_view verb, const std::string& name) {
    return name.empty() ? std::string(verb) : std::string(verb) + " " + name;
}

// Fills a box again; it goes on showing what it showed.
void refill(ComboBox& box, const ListRows& rows) {
    const std::string shown = box.text();
    box.setRows(rows);
    box.setText(shown);
}

} // namespace

UndoCommands::UndoCommands(const Controls& ui, Workspace& workspace, CommandRunner& runner, Lists& lists)
    : m_ui(ui), m_workspace(workspace), m_runner(runner), m_lists(lists) {}

std::string UndoCommands::undoCaption() {
    return caption("Undo", undoName());
}

std::string UndoCommands::redoCaption() {
    return caption("Redo", redoName());
}

void UndoCommands::undo() {
    go({"undo", module}, &vantor::undo, "Undid");
}

void UndoCommands::redo() {
    go({"redo", module}, &vantor::redo, "Redid");
}

void UndoCommands::go(Procedure procedure, std::optional<StepRecords> (*way)(), std::string_view done) {
    m_runner.run(procedure, [&](const StandardTrap& trap) {
        const BusyPointer busy{trap};
        const std::optional<StepRecords> changed = way();
        if (!changed) {
            return std::string();
        }
        m_workspace.unsavedchanges = journal().state() != m_workspace.savedstate;
        trap(&UndoCommands::show, this, *changed);
        return caption(done, changed->name);
    });
}

// Lists by the filters that are remembered, with the rows that changed selected and in sight.
void UndoCommands::show(const StepRecords& changed) {
    if (changed.aircraft) {
        refill(*m_ui.cmbAC, aircraftRows(true));
        m_ui.List3->setRows(missingRows()); // a flag set here would be a change of its own
    }
    m_lists.refresh(0);
    std::vector<int> rows;
    for (int row = 0; row < m_ui.List1->rowCount(); ++row) {
        if (std::ranges::binary_search(changed.recnums, m_ui.List1->itemData(row))) {
            rows.push_back(row);
        }
    }
    m_ui.List1->selectRows(rows);
}

} // namespace vantor
