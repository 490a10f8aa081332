#include "shell/schedule_commands.h"

#include "core/codes.h"
#include "core/combo_rows.h"
#include "core/tables.h"
#include "foundation/busy_pointer.h"
#include "schedule/frmFind.h"
#include "schedule/frmSchedEdit.h"
#include "schedule/schedule_commands.h"
#include "shell/command_runner.h"
#include "shell/lists.h"
#include "shell/workspace.h"
#include "ui_legs_box.h"
#include "ui_schedules_box.h"

namespace vantor {

namespace {

constexpr std::string_view module = "frmMain";

// The focus goes back to the list that a command came from: its button may be disabled now, and Qt would pass the focus
// on to whatever comes next.
class FocusBack {
  public:
    explicit FocusBack(ListBox* list) : m_list(list) {}
    ~FocusBack() { m_list->setFocus(); }
    FocusBack(const FocusBack&) = delete;
    FocusBack& operator=(const FocusBack&) = delete;

  private:
    ListBox* m_list;
};

// "Delete 2 legs and undelete 1"; empty for none.
std::string toggledText(std::int32_t gone, std::int32_t back, std::string_view noun) {
    if (back == 0) {
        return gone == 0 ? std::string() : "Delete " + counted(gone, noun);
    }
    return gone == 0 ? "Undelete " + counted(back, noun)
                     : "Delete " + counted(gone, noun) + " and undelete " + std::to_string(back);
}

void find(ComboBox& box, QWidget& owner) {
    if (box.rowCount() > 0) {
        findstring(box, &owner);
    }
}

std::string tailOf(std::int32_t recnum) {
    return std::string(schedules.peek(recnum).tailnumber.text());
}

} // namespace

ScheduleCommands::ScheduleCommands(QWidget& owner, const Controls& ui, Workspace& workspace, CommandRunner& runner,
                                   Lists& lists)
    : m_owner(owner), m_ui(ui), m_workspace(workspace), m_lists(lists) {
    using Self = ScheduleCommands;
    runner.command(ui.schedules.cmdAddSchedule, {"sub cmdaddschedule_click", module}, this, &Self::add);
    runner.command(ui.schedules.cmdCopy, {"sub cmdcopy_click", module}, this, &Self::copy);
    runner.command(ui.schedules.cmdEditSchedule, {"sub cmdeditschedule_click", module}, this, &Self::edit);
    runner.command(ui.schedules.cmdDeleteSchedule, {"sub cmddeleteschedule_click", module}, this,
                   &Self::toggleSelected);
    runner.command(ui.legs.cmdEditLeg, {"sub cmdeditleg_click", module}, this, &Self::editLeg);
    runner.command(ui.legs.cmdDeleteLeg, {"sub cmddeleteleg_click", module}, this, &Self::toggleSelectedLegs);
    runner.command(ui.cmdFind0, {"sub cmdfind_click", module}, this, &Self::findAircraft);
    runner.command(ui.cmdFind1, {"sub cmdfind_click", module}, this, &Self::findAirport);
}

std::optional<ScheduleRec> ScheduleCommands::askForEdit(const ScheduleRec& schedule, int startRow) {
    // Missing aircraft too, so that their schedules keep them.
    return editSchedule(&m_owner, schedule, {aircraftRows(true), m_ui.cmbICAO->rows()}, startRow);
}

std::string ScheduleCommands::add(const StandardTrap& trap) {
    const FocusBack focus{m_ui.schedules.List1};
    ScheduleRec schedule;
    trap.set(schedule, defaultschedule, m_ui.cmbAC->text());
    if (const std::optional<ScheduleRec> edited = askForEdit(schedule)) {
        m_workspace.unsavedchanges = true;
        addschedule(trap, *edited);
        trap(&Lists::refresh, m_lists, m_ui.schedules.List1->currentRow());
        m_lists.displaylegs(schedulecount, "");
        return "Add " + std::string(edited->tailnumber.text());
    }
    return {};
}

std::string ScheduleCommands::copy(const StandardTrap& trap) {
    const FocusBack focus{m_ui.schedules.List1};
    const std::int32_t id = m_ui.schedules.List1->currentItemData();
    if (id == 0) {
        // Quirk: the guard is that of cmdEditSchedule, and so it is that button which is disabled.
        m_ui.schedules.cmdEditSchedule->setEnabled(false);
        return {};
    }
    const BusyPointer busy{trap};
    copyschedule(trap, id);
    m_workspace.unsavedchanges = true;
    trap(&Lists::refresh, m_lists, m_ui.schedules.List1->currentRow());
    m_lists.displaylegs(id, "");
    return "Copy " + tailOf(id);
}

std::string ScheduleCommands::edit(const StandardTrap& trap) {
    const FocusBack focus{m_ui.schedules.List1};
    const std::int32_t id = m_ui.schedules.List1->currentItemData();
    if (id == 0) {
        m_ui.schedules.cmdEditSchedule->setEnabled(false);
        return {};
    }
    const int saved = m_ui.schedules.List1->currentRow();
    ScheduleRec schedule;
    std::optional<ScheduleRec> edited;
    // A schedule that can't be read must not be overwritten by a blank one.
    if (trap.set(schedule, &clsHashSC::HashGetSlot, schedules, id)) {
        edited = askForEdit(schedule);
    }
    const BusyPointer busy{trap};
    if (edited) {
        m_workspace.unsavedchanges = true;
        trap(&clsHashSC::HashPutSlot, schedules, id, *edited);
    }
    // After a Cancel too. On a filtered list the saved row may be another schedule by now.
    trap(&Lists::refresh, m_lists, saved);
    m_lists.displaylegs(m_ui.schedules.List1->currentItemData(), "");
    return edited ? "Edit " + tailOf(id) : std::string();
}

std::string ScheduleCommands::toggleSelected(const StandardTrap& trap) {
    const FocusBack focus{m_ui.schedules.List1};
    const int saved = m_ui.schedules.List1->currentRow();
    std::int32_t gone = 0;
    std::int32_t back = 0;
    for (int row = 0; row < m_ui.schedules.List1->rowCount(); ++row) {
        const std::int32_t id = m_ui.schedules.List1->itemData(row);
        if (m_ui.schedules.List1->isRowSelected(row) && id != 0) {
            if (const std::optional<bool> deleted = deleteschedbyrecnum(id)) {
                ++(*deleted ? gone : back);
            }
        }
    }
    m_workspace.unsavedchanges = true; // even when no row counted
    trap(&Lists::refresh, m_lists, m_ui.schedules.List1->currentRow());
    m_ui.legs.List2->clear();
    if (saved >= 0) {
        m_ui.schedules.List1->selectRow(saved);
    }
    return toggledText(gone, back, "schedule");
}

std::string ScheduleCommands::editLeg(const StandardTrap& trap) {
    const FocusBack focus{m_ui.legs.List2};
    const LegId id = extractindexes(m_ui.legs.List2->currentItemData()).value_or(LegId{});
    if (!id) {
        return {};
    }
    m_workspace.unsavedchanges = true; // Quirk: before the user has done anything, so that a Cancel leaves it set.
    ScheduleRec schedule;
    std::optional<ScheduleRec> edited;
    // A leg's number can lead to a counted line without a schedule: what was stored there, the next add would
    // overwrite.
    if (trap.set(schedule, &clsHashSC::HashGetSlot, schedules, id.recnum) && schedule.recnum != 0) {
        // Quirk: the row counts and not the leg: on a filtered list the editor may open on another leg.
        const bool fits = m_ui.legs.List2->rowCount() <= schedule.legcount;
        edited = askForEdit(schedule, fits ? m_ui.legs.List2->currentRow() : 0);
    }
    const BusyPointer busy{trap};
    if (edited) {
        trap(&clsHashSC::HashPutSlot, schedules, id.recnum, *edited);
    }
    trap(&Lists::displayselected, m_lists); // List1 is not refilled: its row keeps the old text
    return edited ? "Edit " + tailOf(id.recnum) : std::string();
}

std::string ScheduleCommands::toggleSelectedLegs(const StandardTrap& trap) {
    const FocusBack focus{m_ui.legs.List2};
    ScheduleRec touched;
    LegId id;
    std::int32_t gone = 0;
    std::int32_t back = 0;
    for (int row = 0; row < m_ui.legs.List2->rowCount(); ++row) {
        if (!m_ui.legs.List2->isRowSelected(row)) {
            continue;
        }
        m_ui.legs.List2->setCurrentRow(row);
        // Quirk: a row without a leg's number keeps the one of the row before, whose leg is toggled back.
        id = extractindexes(m_ui.legs.List2->currentItemData()).value_or(id);
        if (id) {
            m_workspace.unsavedchanges = true;
            if (const std::optional<bool> deleted = toggleleg(trap, id, touched)) {
                ++(*deleted ? gone : back);
            }
        }
    }
    if (const std::int32_t recnum = m_ui.schedules.List1->currentItemData(); recnum != 0) {
        m_lists.displaylegs(recnum, "");
    } else {
        m_lists.fillsecondlist(touched.acnum.text(), m_ui.cmbICAO->text());
    }
    if (m_ui.legs.List2->rowCount() > 0) {
        m_lists.enablelegbuttons();
    }
    return toggledText(gone, back, "leg");
}

std::string ScheduleCommands::findAircraft(const StandardTrap& /*trap*/) {
    find(*m_ui.cmbAC, m_owner);
    return {};
}

std::string ScheduleCommands::findAirport(const StandardTrap& /*trap*/) {
    find(*m_ui.cmbICAO, m_owner);
    return {};
}

} // namespace vantor
