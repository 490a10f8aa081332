#include "shell/lists.h"

#include "core/codes.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/log.h"
#include "foundation/text.h"
#include "platform/code_page.h"
#include "shell/command_runner.h"
#include "shell/workspace.h"
#include "ui_aircraft_box.h"
#include "ui_airport_box.h"
#include "ui_legs_box.h"
#include "ui_schedules_box.h"

#include <QLineEdit>

#include <utility>

namespace vantor {

namespace {

constexpr std::string_view module = "frmMain";

// A caption shows what it is given: an ampersand in a code is no mnemonic.
QString caption(std::string_view text) {
    return toQString(replaceAll(text, "&", "&&"));
}

// Keeps a list from painting row by row while it is refilled.
class PaintingOff {
  public:
    explicit PaintingOff(QWidget* widget) : m_widget(widget) { m_widget->setUpdatesEnabled(false); }
    ~PaintingOff() { m_widget->setUpdatesEnabled(true); }
    PaintingOff(const PaintingOff&) = delete;
    PaintingOff& operator=(const PaintingOff&) = delete;

  private:
    QWidget* m_widget;
};

} // namespace

Lists::Lists(const Controls& ui, Workspace& workspace, CommandRunner& runner) : m_ui(ui), m_workspace(workspace) {
    runner.command(ui.cmdListall, {"sub cmdlistall_click", module}, this, &Lists::listAll);
    runner.command(ui.airport.cmdListICAO, {"sub cmdlisticao_click", module}, this, &Lists::listFlightsOfAirport);
    runner.command(ui.aircraft.cmdListACnum, {"sub cmdlistacnum_click", module}, this, &Lists::listFlightsOfAircraft);
    runner.command(ui.aircraft.cmdListUniqueAC, {"sub cmdlistuniqueac_click", module}, this,
                   &Lists::listAirportsOfAircraft);
    runner.command(ui.airport.cmdListUniqueICAO, {"sub cmdlistuniqueicao_click", module}, this,
                   &Lists::listAircraftOfAirport);
    CommandRunner::rowClick(ui.schedules.List1, {"sub list1_click", module}, this, &Lists::clickSchedule);
    CommandRunner::rowClick(ui.legs.List2, {"sub list2_click", module}, this, &Lists::clickLeg);
    CommandRunner::rowClick(ui.List3, {"sub list3_click", module}, this, &Lists::clickMissingAircraft);
}

void Lists::displaylist(std::string_view icao, std::string_view ac, bool unique, int keepindex) {
    Listing listing;
    try {
        busymouse();
        disableschedbuttons();
        const PaintingOff quiet1(m_ui.schedules.List1);
        const PaintingOff quiet2(m_ui.legs.List2);
        host().pumpEvents(Pump::PaintAndTimers);
        clear();
        // The arguments may be the remembered filters themselves.
        std::string icaoCode = extractcode(icao);
        std::string acCode = extractcode(ac);
        m_workspace.currenticao = std::move(icaoCode);
        m_workspace.currentac = std::move(acCode);
        m_workspace.currentunique = unique;
        listSchedules(m_workspace.currenticao, m_workspace.currentac, unique, listing);
        if (listing.caption) {
            m_ui.fraList1->setTitle(caption(*listing.caption));
        }
        m_ui.schedules.List1->setRows(std::move(listing.rows));
    } catch (...) {
        const Error error = currentError();
        normalmouse();
        if (listing.caption) {
            m_ui.fraList1->setTitle(caption(*listing.caption));
        }
        m_ui.schedules.List1->setRows(std::move(listing.rows));
        logit(error.description());
        host().message(error.description());
        // Quirk: the lists stay out of sight until the next listing.
        m_ui.schedules.List1->hide();
        m_ui.legs.List2->hide();
        return;
    }
    m_ui.schedules.List1->show();
    m_ui.legs.List2->show();
    host().pumpEvents(Pump::PaintAndTimers);
    if (m_ui.schedules.List1->rowCount() > keepindex) {
        m_ignorelist1click = true;
        m_ui.schedules.List1->setCurrentRow(keepindex);
        m_ignorelist1click = false;
    }
    normalmouse();
}

void Lists::refresh(int keepindex) {
    displaylist(m_workspace.currenticao, m_workspace.currentac, m_workspace.currentunique, keepindex);
}

void Lists::showLegs(LegListing listing) {
    disablelegbuttons();
    settimetableicao("");
    if (listing.enabled) {
        m_ui.legs.List2->setEnabled(*listing.enabled);
    }
    if (listing.caption) {
        m_ui.fraList2->setTitle(caption(*listing.caption));
    }
    m_ui.legs.List2->setRows(std::move(listing.rows));
    if (listing.selectFirst && m_ui.legs.List2->rowCount() > 0) {
        m_ui.legs.List2->setCurrentRow(0);
    }
    if (listing.disableButtons) {
        disablelegbuttons();
    }
}

void Lists::fillsecondlist(std::string_view ac, std::string_view icao) noexcept {
    const StandardTrap trap{"sub fillsecondlist", module};
    const PaintingOff quiet(m_ui.legs.List2);
    showLegs(listLegsOfAircraft(trap, extractcode(ac), extractcode(icao)));
}

void Lists::displaylegs(std::int32_t recnum, std::string_view icao) noexcept {
    const PaintingOff quiet(m_ui.legs.List2);
    showLegs(listLegs(recnum, icao));
}

void Lists::displayselected() {
    const std::int32_t id = m_ui.schedules.List1->currentItemData();
    const std::string row = m_ui.schedules.List1->currentText();
    switch (kindOfRow(id, row)) {
    case ScheduleListRow::schedule:
        displaylegs(id, "");
        break;
    case ScheduleListRow::aircraftRow:
        fillsecondlist(row, upper(m_ui.airport.cmbICAO->text()));
        m_ui.aircraft.cmbAC->setText(row);
        break;
    case ScheduleListRow::airportRow:
        fillsecondlist(upper(m_ui.aircraft.cmbAC->text()), row);
        m_ui.airport.cmbICAO->setText(row);
        m_ui.txtICAO1->setText(toQString(extractcode(row)));
        break;
    case ScheduleListRow::nothing:
        break;
    }
}

void Lists::clear() {
    m_ui.schedules.List1->clear();
    m_ui.legs.List2->clear();
}

void Lists::enablelegbuttons() noexcept {
    const StandardTrap trap{"sub enablelegbuttons", module};
    const LegButtons buttons = legButtons(trap, m_ui.legs.List2->currentItemData());
    if (!buttons.enable) {
        return;
    }
    m_ui.legs.cmdEditLeg->setEnabled(true);
    m_ui.legs.cmdDeleteLeg->setEnabled(true);
    if (buttons.deleteCaption) {
        m_ui.legs.cmdDeleteLeg->setText(*buttons.deleteCaption == "Delete" ? QStringLiteral("Dele&te")
                                                                           : QStringLiteral("Undele&te"));
    }
}

void Lists::disablelegbuttons() noexcept {
    m_ui.legs.cmdEditLeg->setEnabled(false);
    m_ui.legs.cmdDeleteLeg->setEnabled(false);
}

void Lists::enableschedbuttons() noexcept {
    const StandardTrap trap{"sub enableschedbuttons", module};
    const ScheduleButtons buttons =
        scheduleButtons(trap, static_cast<std::size_t>(m_ui.schedules.List1->selectedRowCount()),
                        m_ui.schedules.List1->currentItemData(), m_ui.schedules.List1->currentText());
    m_ui.schedules.cmdEditSchedule->setEnabled(buttons.editSchedule);
    m_ui.schedules.cmdCopy->setEnabled(buttons.copy);
    m_ui.schedules.cmdDeleteSchedule->setEnabled(buttons.deleteSchedule);
    m_ui.schedules.cmdSwapAC->setEnabled(buttons.swapAircraft);
    if (buttons.deleteCaption) {
        m_ui.schedules.cmdDeleteSchedule->setText(*buttons.deleteCaption == "Delete" ? QStringLiteral("&Delete")
                                                                                     : QStringLiteral("Un&delete"));
    }
}

void Lists::disableschedbuttons() noexcept {
    m_ui.schedules.cmdEditSchedule->setEnabled(false);
    m_ui.schedules.cmdDeleteSchedule->setEnabled(false);
    m_ui.schedules.cmdSwapAC->setEnabled(false);
    m_ui.schedules.cmdCopy->setEnabled(false);
}

void Lists::disableButtons() noexcept {
    disablelegbuttons();
    disableschedbuttons();
}

void Lists::settimetableicao(std::string_view icao) {
    m_timetableicao = icao;
    m_ui.legs.cmdPrint->setEnabled(!m_timetableicao.empty());
}

// The keys go on in the list.
std::string Lists::list(std::string_view icao, std::string_view ac, bool unique) {
    displaylist(icao, ac, unique, 0);
    m_ui.schedules.List1->setFocus();
    return {};
}

std::string Lists::listAll(const StandardTrap& /*trap*/) {
    return list("", "", false);
}

std::string Lists::listFlightsOfAirport(const StandardTrap& /*trap*/) {
    return list(upper(m_ui.airport.cmbICAO->text()), "", false);
}

std::string Lists::listFlightsOfAircraft(const StandardTrap& /*trap*/) {
    return list("", upper(m_ui.aircraft.cmbAC->text()), false);
}

std::string Lists::listAirportsOfAircraft(const StandardTrap& /*trap*/) {
    return list("", upper(m_ui.aircraft.cmbAC->text()), true);
}

std::string Lists::listAircraftOfAirport(const StandardTrap& /*trap*/) {
    return list(upper(m_ui.airport.cmbICAO->text()), "", true);
}

void Lists::clickSchedule(const StandardTrap& trap) {
    if (m_ignorelist1click) {
        return;
    }
    disableButtons();
    trap(&Lists::displayselected, this);
    enableschedbuttons();
}

void Lists::clickLeg(const StandardTrap& /*trap*/) {
    enablelegbuttons();
}

void Lists::clickMissingAircraft(const StandardTrap& /*trap*/) {
    m_ui.aircraft.cmbAC->setText(m_ui.List3->currentText());
}

} // namespace vantor
