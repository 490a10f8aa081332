#include "shell/lists.h"

#include "core/codes.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/log.h"
#include "foundation/text.h"
#include "platform/code_page.h"
#include "shell/command_runner.h"
#include "shell/workspace.h"
#include "ui_frmMain.h"

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

Lists::Lists(Ui::frmMain& ui, Workspace& workspace, CommandRunner& runner) : m_ui(ui), m_workspace(workspace) {
    runner.command(ui.cmdListall, {"sub cmdlistall_click", module}, this, &Lists::listAll);
    runner.command(ui.cmdListICAO, {"sub cmdlisticao_click", module}, this, &Lists::listFlightsOfAirport);
    runner.command(ui.cmdListACnum, {"sub cmdlistacnum_click", module}, this, &Lists::listFlightsOfAircraft);
    runner.command(ui.cmdListUniqueAC, {"sub cmdlistuniqueac_click", module}, this, &Lists::listAirportsOfAircraft);
    runner.command(ui.cmdListUniqueICAO, {"sub cmdlistuniqueicao_click", module}, this, &Lists::listAircraftOfAirport);
    CommandRunner::rowClick(ui.List1, {"sub list1_click", module}, this, &Lists::clickSchedule);
    CommandRunner::rowClick(ui.List2, {"sub list2_click", module}, this, &Lists::clickLeg);
    CommandRunner::rowClick(ui.List3, {"sub list3_click", module}, this, &Lists::clickMissingAircraft);
}

void Lists::displaylist(std::string_view icao, std::string_view ac, bool unique, int keepindex) {
    Listing listing;
    try {
        busymouse();
        disableschedbuttons();
        const PaintingOff quiet1(m_ui.List1);
        const PaintingOff quiet2(m_ui.List2);
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
        m_ui.List1->setRows(std::move(listing.rows));
    } catch (...) {
        const Error error = currentError();
        normalmouse();
        if (listing.caption) {
            m_ui.fraList1->setTitle(caption(*listing.caption));
        }
        m_ui.List1->setRows(std::move(listing.rows));
        logit(error.description());
        host().message(error.description());
        // Quirk: the lists stay out of sight until the next listing.
        m_ui.List1->hide();
        m_ui.List2->hide();
        return;
    }
    m_ui.List1->show();
    m_ui.List2->show();
    host().pumpEvents(Pump::PaintAndTimers);
    if (m_ui.List1->rowCount() > keepindex) {
        m_ignorelist1click = true;
        m_ui.List1->setCurrentRow(keepindex);
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
        m_ui.List2->setEnabled(*listing.enabled);
    }
    if (listing.caption) {
        m_ui.fraList2->setTitle(caption(*listing.caption));
    }
    m_ui.List2->setRows(std::move(listing.rows));
    if (listing.selectFirst && m_ui.List2->rowCount() > 0) {
        m_ui.List2->setCurrentRow(0);
    }
    if (listing.disableButtons) {
        disablelegbuttons();
    }
}

void Lists::fillsecondlist(std::string_view ac, std::string_view icao) noexcept {
    const StandardTrap trap{"sub fillsecondlist", module};
    const PaintingOff quiet(m_ui.List2);
    trap([&] { showLegs(listLegsOfAircraft(trap, extractcode(ac), extractcode(icao))); });
}

void Lists::displaylegs(std::int32_t recnum, std::string_view icao) noexcept {
    const StandardTrap trap{"sub displaylegs", module};
    const PaintingOff quiet(m_ui.List2);
    trap([&] { showLegs(listLegs(recnum, icao)); });
}

void Lists::displayselected() {
    const std::int32_t id = m_ui.List1->currentItemData();
    const std::string row = m_ui.List1->currentText();
    switch (kindOfRow(id, row)) {
    case ScheduleListRow::schedule:
        displaylegs(id, "");
        break;
    case ScheduleListRow::aircraftRow:
        fillsecondlist(row, upper(m_ui.cmbICAO->text()));
        m_ui.cmbAC->setText(row);
        break;
    case ScheduleListRow::airportRow:
        fillsecondlist(upper(m_ui.cmbAC->text()), row);
        m_ui.cmbICAO->setText(row);
        m_ui.txtICAO1->setText(toQString(extractcode(row)));
        break;
    case ScheduleListRow::nothing:
        break;
    }
}

void Lists::clear() {
    m_ui.List1->clear();
    m_ui.List2->clear();
}

void Lists::enablelegbuttons() noexcept {
    const StandardTrap trap{"sub enablelegbuttons", module};
    const LegButtons buttons = legButtons(trap, m_ui.List2->currentItemData());
    if (!buttons.enable) {
        return;
    }
    m_ui.cmdEditLeg->setEnabled(true);
    m_ui.cmdDeleteLeg->setEnabled(true);
    if (buttons.deleteCaption) {
        m_ui.cmdDeleteLeg->setText(*buttons.deleteCaption == "Delete" ? QStringLiteral("Dele&te")
                                                                      : QStringLiteral("Undele&te"));
    }
}

void Lists::disablelegbuttons() noexcept {
    m_ui.cmdEditLeg->setEnabled(false);
    m_ui.cmdDeleteLeg->setEnabled(false);
}

void Lists::enableschedbuttons() noexcept {
    const StandardTrap trap{"sub enableschedbuttons", module};
    const ScheduleButtons buttons = scheduleButtons(trap, static_cast<std::size_t>(m_ui.List1->selectedRowCount()),
                                                    m_ui.List1->currentItemData(), m_ui.List1->currentText());
    m_ui.cmdEditSchedule->setEnabled(buttons.editSchedule);
    m_ui.cmdCopy->setEnabled(buttons.copy);
    m_ui.cmdDeleteSchedule->setEnabled(buttons.deleteSchedule);
    m_ui.cmdSwapAC->setEnabled(buttons.swapAircraft);
    if (buttons.deleteCaption) {
        m_ui.cmdDeleteSchedule->setText(*buttons.deleteCaption == "Delete" ? QStringLiteral("&Delete")
                                                                           : QStringLiteral("Un&delete"));
    }
}

void Lists::disableschedbuttons() noexcept {
    m_ui.cmdEditSchedule->setEnabled(false);
    m_ui.cmdDeleteSchedule->setEnabled(false);
    m_ui.cmdSwapAC->setEnabled(false);
    m_ui.cmdCopy->setEnabled(false);
}

void Lists::disableButtons() noexcept {
    disablelegbuttons();
    disableschedbuttons();
}

void Lists::settimetableicao(std::string_view icao) {
    m_timetableicao = icao;
    m_ui.cmdPrint->setEnabled(!m_timetableicao.empty());
}

// The keys go on in the list.
std::string Lists::list(std::string_view icao, std::string_view ac, bool unique) {
    displaylist(icao, ac, unique, 0);
    m_ui.List1->setFocus();
    return {};
}

std::string Lists::listAll(const StandardTrap& /*trap*/) {
    return list("", "", false);
}

std::string Lists::listFlightsOfAirport(const StandardTrap& /*trap*/) {
    return list(upper(m_ui.cmbICAO->text()), "", false);
}

std::string Lists::listFlightsOfAircraft(const StandardTrap& /*trap*/) {
    return list("", upper(m_ui.cmbAC->text()), false);
}

std::string Lists::listAirportsOfAircraft(const StandardTrap& /*trap*/) {
    return list("", upper(m_ui.cmbAC->text()), true);
}

std::string Lists::listAircraftOfAirport(const StandardTrap& /*trap*/) {
    return list(upper(m_ui.cmbICAO->text()), "", true);
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
    m_ui.cmbAC->setText(m_ui.List3->currentText());
}

} // namespace vantor
