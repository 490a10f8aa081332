// frmMain: repairs of the aircraft against the simulator, and another aircraft for the selected schedules.
#include "bulk/aircraft_swap.h"
#include "core/aircraft_table.h"
#include "core/codes.h"
#include "core/combo_rows.h"
#include "foundation/host.h"
#include "foundation/trap.h"
#include "platform/combo_box.h"
#include "platform/list_box.h"
#include "schedule/schedule_commands.h"
#include "shell/frmMain.h"
#include "simulator/aircraft_changes.h"
#include "simulator/frmAircraftSub.h"
#include "simulator/missing_aircraft.h"
#include "ui_frmMain.h"

#include <vector>

namespace vantor {

namespace {

constexpr std::string_view module = "frmMain";

// Missing aircraft are in the box as well.
void refillAircraft(ComboBox& box) {
    box.setRows(aircraftRows(true));
    box.setCurrentRow(0);
}

int rowWithText(const ComboBox& box, std::string_view text) {
    for (int row = 0; row < box.rowCount(); ++row) {
        if (box.rowText(row) == text) {
            return row;
        }
    }
    return -1;
}

} // namespace

void frmMain::connectAircraftCommands() {
    command(ui->cmdSubAC, &frmMain::cmdSubAC_Click);
    command(ui->cmdAddFS, &frmMain::cmdAddFS_Click);
    command(ui->cmdDeleteAC, &frmMain::cmdDeleteAC_Click);
    command(ui->cmdSwapAC, &frmMain::cmdSwapAC_Click);
}

void frmMain::cmdSubAC_Click() noexcept {
    const StandardTrap trap{"sub cmdsubac_click", module};
    if (ui->List3->currentRow() < 0) {
        return;
    }
    trap([&] {
        const auto chosen = chooseAircraft(this, ui->List3->currentText(), aircraftRows(false));
        if (!chosen) {
            return;
        }
        trap([&] { busymouse(); });
        takeSubstitute(chosen->substitutetext);
        trap([&] { ui->List3->removeRow(ui->List3->currentRow()); });
        trap([&] { normalmouse(); });
    });
}

void frmMain::takeSubstitute(const std::string& substitutetext) noexcept {
    const StandardTrap trap{"sub cmdsubac_click", module};
    int row = -1;
    trap([&] { row = rowWithText(*ui->cmbAC, ui->List3->currentText()); });
    if (row < 0) {
        return;
    }
    trap([&] { ui->cmbAC->setRowText(row, substitutetext); });
    trap([&] { ui->cmbAC->setText(substitutetext); });
    if (substituteAircraft(substitutetext)) {
        unsavedchanges = true;
    }
}

void frmMain::cmdAddFS_Click() noexcept {
    const StandardTrap trap{"sub cmdaddfs_click", module};
    bool sure = false;
    trap([&] { sure = host().askYesNo("This will add any new FS Aircraft to AIRCRAFT.TXT.  Are you sure?"); });
    if (!sure) {
        return;
    }
    unsavedchanges = true;
    trap([&] { busymouse(); });
    trap([&] {
        if (const std::string message = addnewfsaircraft(); !message.empty()) {
            host().message(message);
        }
    });
    trap([&] { SortAircraft(); });
    trap([&] { refillAircraft(*ui->cmbAC); });
    trap([&] { normalmouse(); });
    trap([&] { selectFirstAircraft(); });
}

void frmMain::cmdDeleteAC_Click() noexcept {
    const StandardTrap trap{"sub cmddeleteac_click", module};
    std::string text;
    trap([&] { text = ui->cmbAC->text(); });
    if (text.empty()) {
        return;
    }
    bool sure = false;
    trap([&] { sure = host().askYesNo("Are you sure?  This will also delete all schedules for this aircraft."); });
    if (!sure) {
        return;
    }
    unsavedchanges = true;
    trap([&] { busymouse(); });
    deleteaircraft(text);
    trap([&] { ui->List3->setRows(checkmissing()); });
    deleteschedbyac(text);
    trap([&] { refillAircraft(*ui->cmbAC); });
    trap([&] { ui->List1->clear(); });
    trap([&] { ui->List2->clear(); });
    trap([&] { host().pumpEvents(Pump::PaintAndTimers); });
    trap([&] { normalmouse(); });
}

void frmMain::cmdSwapAC_Click() noexcept {
    const StandardTrap trap{"sub cmdswapac_click", module};
    const int keepindex = ui->List1->currentRow();
    if (keepindex < 0) {
        ui->cmdSwapAC->setEnabled(false);
        return;
    }
    // Row 0 and not the current row tells a list of schedules from the others; it is meant.
    if (!ui->List1->isRowSelected(keepindex) || ui->List1->itemData(0) <= 0) {
        return;
    }
    trap([&] {
        const auto chosen = chooseAircraft(this, extractaircraft(ui->List1->currentText()), aircraftRows(false));
        if (!chosen || chosen->row.empty()) {
            return;
        }
        unsavedchanges = true;
        std::vector<std::int32_t> recnums;
        for (int row = 0; row < ui->List1->rowCount(); ++row) {
            if (ui->List1->isRowSelected(row) && ui->List1->itemData(row) > 0) {
                recnums.push_back(ui->List1->itemData(row));
            }
        }
        swapAircraft(recnums, chosen->row);
        trap([&] { displaylist(currenticao, currentac, "", currentunique, keepindex); });
    });
}

} // namespace vantor
