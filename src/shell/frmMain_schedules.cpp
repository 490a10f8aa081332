// frmMain: the buttons under the lists of schedules and legs, and Find in the two combo boxes.
#include "core/codes.h"
#include "core/combo_rows.h"
#include "core/tables.h"
#include "foundation/host.h"
#include "foundation/text.h"
#include "foundation/trap.h"
#include "platform/combo_box.h"
#include "platform/list_box.h"
#include "schedule/frmFind.h"
#include "schedule/frmSchedEdit.h"
#include "schedule/schedule_commands.h"
#include "shell/frmMain.h"
#include "ui_frmMain.h"

#include <optional>
#include <string>
#include <utility>

namespace vantor {

namespace {

constexpr std::string_view module = "frmMain";

} // namespace

void frmMain::connectScheduleCommands() {
    command(ui->cmdAddSchedule, &frmMain::cmdAddSchedule_Click);
    command(ui->cmdCopy, &frmMain::cmdCopy_Click);
    command(ui->cmdEditSchedule, &frmMain::cmdEditSchedule_Click);
    command(ui->cmdDeleteSchedule, &frmMain::cmdDeleteSchedule_Click);
    command(ui->cmdEditLeg, &frmMain::cmdEditLeg_Click);
    command(ui->cmdDeleteLeg, &frmMain::cmdDeleteLeg_Click);
    command(ui->cmdFind0, [](frmMain& form) { form.cmdFind_Click(0); });
    command(ui->cmdFind1, [](frmMain& form) { form.cmdFind_Click(1); });
}

std::optional<ScheduleRec> frmMain::edit(const ScheduleRec& schedule, int startRow) {
    // Missing aircraft too, so that their schedules keep them.
    return editSchedule(this, schedule, {aircraftRows(true), ui->cmbICAO->rows()}, startRow);
}

void frmMain::cmdAddSchedule_Click() noexcept {
    const StandardTrap trap{"sub cmdaddschedule_click", module};
    trap([&] {
        ScheduleRec schedule;
        trap([&] { schedule = defaultschedule(ui->cmbAC->text()); });
        const std::optional<ScheduleRec> edited = edit(schedule);
        if (!edited) {
            return;
        }
        unsavedchanges = true;
        addschedule(*edited, "sub cmdaddschedule_click");
        trap([&] { displaylist(currenticao, currentac, "", currentunique, ui->List1->currentRow()); });
        trap([&] { displaylegs(true, schedulecount, ""); });
    });
}

void frmMain::cmdCopy_Click() noexcept {
    const StandardTrap trap{"sub cmdcopy_click", module};
    const std::int32_t id = ui->List1->currentItemData();
    if (id == 0) {
        // The guard is that of cmdEditSchedule, and so it is that button which is disabled. It is meant.
        ui->cmdEditSchedule->setEnabled(false);
        return;
    }
    trap([&] { busymouse(); });
    copyschedule(id);
    unsavedchanges = true;
    trap([&] { displaylist(currenticao, currentac, "", currentunique, ui->List1->currentRow()); });
    trap([&] { displaylegs(true, id, ""); });
    trap([&] { normalmouse(); });
}

void frmMain::cmdEditSchedule_Click() noexcept {
    const StandardTrap trap{"sub cmdeditschedule_click", module};
    const std::int32_t id = ui->List1->currentItemData();
    if (id == 0) {
        ui->cmdEditSchedule->setEnabled(false);
        return;
    }
    trap([&] { busymouse(); });
    const int saved = ui->List1->currentRow();
    trap([&] {
        ScheduleRec schedule;
        // A schedule that can't be read must not be overwritten by a blank one.
        if (!trap([&] { schedule = schedules.HashGetSlot(id); })) {
            return;
        }
        const std::optional<ScheduleRec> edited = edit(schedule);
        trap([&] { busymouse(); });
        if (edited) {
            unsavedchanges = true;
            trap([&] { schedules.HashPutSlot(id, *edited); });
        }
    });
    // After a Cancel too. On a filtered list the saved row may be another schedule by now.
    trap([&] { displaylist(currenticao, currentac, "", currentunique, saved); });
    trap([&] { displaylegs(true, ui->List1->currentItemData(), ""); });
    trap([&] { normalmouse(); });
}

void frmMain::cmdEditLeg_Click() noexcept {
    const StandardTrap trap{"sub cmdeditleg_click", module};
    std::int32_t rec = 0;
    std::int32_t leg = 0;
    trap([&] { extractindexes(ui->List2->currentItemData(), rec, leg); });
    if (rec == 0 || leg == 0) {
        return;
    }
    unsavedchanges = true; // before the user has done anything: a Cancel leaves it set, which is meant
    trap([&] { busymouse(); });
    trap([&] {
        ScheduleRec schedule;
        // A leg's number can lead to a counted line without a schedule: what was stored there, the next add would
        // overwrite.
        if (!trap([&] { schedule = schedules.HashGetSlot(rec); }) || schedule.recnum == 0) {
            return;
        }
        // Quirk: the row counts and not the leg, so on a filtered list the editor may open on another leg.
        const bool fits = ui->List2->rowCount() <= schedule.legcount;
        if (const auto edited = edit(schedule, fits ? ui->List2->currentRow() : 0)) {
            trap([&] { busymouse(); });
            unsavedchanges = true;
            trap([&] { schedules.HashPutSlot(rec, *edited); });
        }
    });
    trap([&] { displayselected(); }); // List1 is not refilled: its row keeps the old text
    trap([&] { normalmouse(); });
}

void frmMain::cmdDeleteSchedule_Click() noexcept {
    const StandardTrap trap{"sub cmddeleteschedule_click", module};
    const int saved = ui->List1->currentRow();
    for (int row = 0; row < ui->List1->rowCount(); ++row) {
        if (ui->List1->isRowSelected(row) && ui->List1->itemData(row) != 0) {
            deleteschedbyrecnum(ui->List1->itemData(row));
        }
    }
    unsavedchanges = true; // even when no row counted
    trap([&] { displaylist(currenticao, currentac, "", currentunique, ui->List1->currentRow()); });
    trap([&] { ui->List2->clear(); });
    trap([&] {
        if (saved >= 0) {
            ui->List1->selectRow(saved);
        }
    });
}

void frmMain::cmdDeleteLeg_Click() noexcept {
    const StandardTrap trap{"sub cmddeleteleg_click", module};
    ScheduleRec touched;
    std::int32_t rec = 0;
    std::int32_t leg = 0;
    for (int row = 0; row < ui->List2->rowCount(); ++row) {
        if (!ui->List2->isRowSelected(row)) {
            continue;
        }
        trap([&] { ui->List2->setCurrentRow(row); });
        // A row without a leg's number keeps the one of the row before, whose leg is toggled back. It is meant.
        trap([&] { extractindexes(ui->List2->currentItemData(), rec, leg); });
        if (rec != 0 && leg != 0) {
            unsavedchanges = true;
            toggleleg(rec, leg, touched);
        }
    }
    trap([&] {
        const std::int32_t id = ui->List1->currentItemData();
        if (id == 0) {
            fillsecondlist(touched.acnum.text(), ui->cmbICAO->text());
        } else {
            displaylegs(true, id, "");
        }
    });
    if (ui->List2->rowCount() > 0) {
        enablelegbuttons();
    }
}

void frmMain::cmdFind_Click(int index) noexcept {
    const StandardTrap trap{"sub cmdfind_click", module};
    trap([&] {
        ComboBox& box = index == 0 ? *ui->cmbAC : *ui->cmbICAO;
        if (box.rowCount() > 0) {
            findstring(box, this);
        }
    });
}

} // namespace vantor
