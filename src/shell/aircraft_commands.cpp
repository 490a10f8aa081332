#include "shell/aircraft_commands.h"

#include "bulk/aircraft_swap.h"
#include "core/aircraft_table.h"
#include "core/codes.h"
#include "core/combo_rows.h"
#include "foundation/busy_pointer.h"
#include "schedule/schedule_commands.h"
#include "shell/command_runner.h"
#include "shell/lists.h"
#include "shell/workspace.h"
#include "simulator/aircraft_changes.h"
#include "simulator/frmAircraftSub.h"
#include "simulator/missing_aircraft.h"
#include "ui_aircraft_box.h"

#include <utility>
#include <vector>

namespace vantor {

namespace {

constexpr std::string_view module = "frmMain";

int rowWithText(const ComboBox& box, std::string_view text) {
    for (int row = 0; row < box.rowCount(); ++row) {
        if (box.rowText(row) == text) {
            return row;
        }
    }
    return -1;
}

std::vector<std::int32_t> selectedSchedules(const ListBox& list) {
    std::vector<std::int32_t> recnums;
    for (int row = 0; row < list.rowCount(); ++row) {
        if (list.isRowSelected(row) && list.itemData(row) > 0) {
            recnums.push_back(list.itemData(row));
        }
    }
    return recnums;
}

} // namespace

AircraftCommands::AircraftCommands(QWidget& owner, const Controls& ui, Workspace& workspace, CommandRunner& runner,
                                   Lists& lists)
    : m_owner(owner), m_ui(ui), m_workspace(workspace), m_lists(lists) {
    using Self = AircraftCommands;
    runner.command(ui.cmdSubAC, {"sub cmdsubac_click", module}, this, &Self::substitute);
    runner.command(ui.aircraft.cmdAddFS, {"sub cmdaddfs_click", module}, this, &Self::addFromSimulator);
    runner.command(ui.aircraft.cmdDeleteAC, {"sub cmddeleteac_click", module}, this, &Self::deleteChosen);
    runner.command(ui.cmdSwapAC, {"sub cmdswapac_click", module}, this, &Self::swap);
}

std::string AircraftCommands::substitute(const StandardTrap& trap) {
    if (m_ui.List3->currentRow() < 0) {
        return {};
    }
    const auto chosen = chooseAircraft(&m_owner, m_ui.List3->currentText(), aircraftRows(false));
    if (!chosen) {
        return {};
    }
    const BusyPointer busy{trap};
    bool took = false;
    trap.set(took, &AircraftCommands::takeSubstitute, this, trap, chosen->substitutetext);
    m_ui.List3->removeRow(m_ui.List3->currentRow());
    return took ? "Substitute " + extractcode(chosen->substitutetext) : std::string();
}

bool AircraftCommands::takeSubstitute(const StandardTrap& trap, const std::string& substitutetext) {
    const int row = rowWithText(*m_ui.aircraft.cmbAC, m_ui.List3->currentText());
    if (row < 0) {
        return false;
    }
    m_ui.aircraft.cmbAC->setRowText(row, substitutetext);
    m_ui.aircraft.cmbAC->setText(substitutetext);
    const bool took = substituteAircraft(trap, substitutetext);
    m_workspace.unsavedchanges = m_workspace.unsavedchanges || took;
    return took;
}

std::string AircraftCommands::addFromSimulator(const StandardTrap& trap) {
    if (!host().askYesNo("This will add any new FS Aircraft to AIRCRAFT.TXT.  Are you sure?")) {
        return {};
    }
    m_workspace.unsavedchanges = true;
    NewAircraft result;
    {
        const BusyPointer busy{trap};
        result = addnewfsaircraft();
        if (!result.message.empty()) {
            trap(&Host::message, host(), result.message);
        }
        trap(SortAircraft);
        trap(&AircraftCommands::refillAircraft, this);
    }
    m_ui.aircraft.cmbAC->setCurrentRow(0);
    if (result.found == 0) {
        return {};
    }
    const std::string did = "Add " + counted(result.added, "aircraft", "aircraft");
    return result.added == result.found
               ? did
               : did + " of " + std::to_string(result.found) + ": no AC# number is left for the others";
}

std::string AircraftCommands::deleteChosen(const StandardTrap& trap) {
    const std::string text = m_ui.aircraft.cmbAC->text();
    if (text.empty() || !host().askYesNo("Are you sure?  This will also delete all schedules for this aircraft.")) {
        return {};
    }
    m_workspace.unsavedchanges = true;
    const BusyPointer busy{trap};
    deleteaircraft(text);
    if (ListRows missing; trap.set(missing, checkmissing)) {
        m_ui.List3->setRows(std::move(missing));
    }
    deleteschedbyac(text);
    trap(&AircraftCommands::refillAircraft, this);
    m_lists.clear();
    trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
    return "Delete " + extractcode(text);
}

std::string AircraftCommands::swap(const StandardTrap& trap) {
    const int keepindex = m_ui.List1->currentRow();
    if (keepindex < 0) {
        m_ui.cmdSwapAC->setEnabled(false);
        return {};
    }
    // Quirk: row 0 and not the current row tells a list of schedules from the others.
    if (!m_ui.List1->isRowSelected(keepindex) || m_ui.List1->itemData(0) <= 0) {
        return {};
    }
    const auto chosen = chooseAircraft(&m_owner, extractaircraft(m_ui.List1->currentText()), aircraftRows(false));
    if (!chosen || chosen->row.empty()) {
        return {};
    }
    m_workspace.unsavedchanges = true;
    const std::vector<std::int32_t> recnums = selectedSchedules(*m_ui.List1);
    swapAircraft(trap, recnums, chosen->row);
    trap(&Lists::refresh, m_lists, keepindex);
    return "Swap " + counted(std::ssize(recnums), "schedule") + " to " + extractcode(chosen->row);
}

// Missing aircraft are in the box as well.
void AircraftCommands::refillAircraft() {
    m_ui.aircraft.cmbAC->setRows(aircraftRows(true));
    m_ui.aircraft.cmbAC->setCurrentRow(0);
}

} // namespace vantor
