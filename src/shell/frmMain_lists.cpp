// frmMain: the lists of schedules and legs and the two combo boxes that choose what is listed.
#include "core/codes.h"
#include "core/tables.h"
#include "foundation/host.h"
#include "foundation/log.h"
#include "foundation/text.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "shell/frmMain.h"
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

void frmMain::displaylist(std::string_view icao, std::string_view ac, std::string_view /*third*/, bool unique,
                          int keepindex) {
    Listing listing;
    try {
        busymouse();
        disableschedbuttons();
        const PaintingOff quiet1(ui->List1);
        const PaintingOff quiet2(ui->List2);
        host().pumpEvents(Pump::PaintAndTimers);
        ui->List2->clear();
        ui->List1->clear();
        // The arguments may be the remembered filters themselves.
        std::string icaoCode = extractcode(icao);
        std::string acCode = extractcode(ac);
        currenticao = std::move(icaoCode);
        currentac = std::move(acCode);
        currentunique = unique;
        listSchedules(currenticao, currentac, currentunique, listing);
        if (listing.caption) {
            ui->fraList1->setTitle(caption(*listing.caption));
        }
        ui->List1->setRows(std::move(listing.rows));
    } catch (...) {
        const Error error = currentError();
        normalmouse();
        if (listing.caption) {
            ui->fraList1->setTitle(caption(*listing.caption));
        }
        ui->List1->setRows(std::move(listing.rows));
        logit(error.description());
        host().message(error.description());
        // The lists stay out of sight until the next listing; it is meant.
        ui->List1->hide();
        ui->List2->hide();
        return;
    }
    ui->List1->show();
    ui->List2->show();
    host().pumpEvents(Pump::PaintAndTimers);
    if (ui->List1->rowCount() > keepindex) {
        m_ignorelist1click = true;
        ui->List1->setCurrentRow(keepindex);
        m_ignorelist1click = false;
    }
    normalmouse();
}

void frmMain::showLegs(LegListing listing, bool clearfirst) {
    disablelegbuttons();
    settimetableicao("");
    if (listing.enabled) {
        ui->List2->setEnabled(*listing.enabled);
    }
    if (listing.caption) {
        ui->fraList2->setTitle(caption(*listing.caption));
    }
    if (clearfirst) {
        ui->List2->setRows(std::move(listing.rows));
    } else {
        for (const ListRow& row : listing.rows) {
            ui->List2->addRow(row.text, row.itemData);
        }
    }
    if (listing.selectFirst && ui->List2->rowCount() > 0) {
        ui->List2->setCurrentRow(0);
    }
    if (listing.disableButtons) {
        disablelegbuttons();
    }
}

void frmMain::fillsecondlist(std::string_view ac, std::string_view icao) noexcept {
    const StandardTrap trap{"sub fillsecondlist", module};
    trap([&] {
        const PaintingOff quiet(ui->List2);
        showLegs(listLegsOfAircraft(extractcode(ac), extractcode(icao)), true);
    });
}

void frmMain::displaylegs(bool clearfirst, std::int32_t recnum, std::string_view icao) noexcept {
    const StandardTrap trap{"sub displaylegs", module};
    trap([&] {
        const PaintingOff quiet(ui->List2);
        showLegs(listLegs(recnum, icao), clearfirst);
    });
}

void frmMain::displayselected() {
    const std::int32_t id = ui->List1->currentItemData();
    const std::string row = ui->List1->currentText();
    switch (kindOfRow(id, row)) {
    case ScheduleListRow::schedule:
        displaylegs(true, id, "");
        break;
    case ScheduleListRow::aircraftRow:
        fillsecondlist(row, upper(ui->cmbICAO->text()));
        ui->cmbAC->setText(row);
        break;
    case ScheduleListRow::airportRow:
        fillsecondlist(upper(ui->cmbAC->text()), row);
        ui->cmbICAO->setText(row);
        ui->txtICAO1->setText(toQString(extractcode(row)));
        break;
    case ScheduleListRow::nothing:
        break;
    }
}

void frmMain::enablelegbuttons() noexcept {
    const StandardTrap trap{"sub enablelegbuttons", module};
    trap([&] {
        const LegButtons buttons = legButtons(ui->List2->currentItemData());
        if (!buttons.enable) {
            return;
        }
        ui->cmdEditLeg->setEnabled(true);
        ui->cmdDeleteLeg->setEnabled(true);
        if (buttons.deleteCaption) {
            ui->cmdDeleteLeg->setText(*buttons.deleteCaption == "Delete" ? QStringLiteral("Dele&te")
                                                                         : QStringLiteral("Undele&te"));
        }
    });
}

void frmMain::disablelegbuttons() noexcept {
    ui->cmdEditLeg->setEnabled(false);
    ui->cmdDeleteLeg->setEnabled(false);
}

void frmMain::disableschedbuttons() noexcept {
    ui->cmdEditSchedule->setEnabled(false);
    ui->cmdDeleteSchedule->setEnabled(false);
    ui->cmdSwapAC->setEnabled(false);
    ui->cmdCopy->setEnabled(false);
}

void frmMain::enableschedbuttons() noexcept {
    const StandardTrap trap{"sub enableschedbuttons", module};
    trap([&] {
        const ScheduleButtons buttons = scheduleButtons(static_cast<std::size_t>(ui->List1->selectedRowCount()),
                                                        ui->List1->currentItemData(), ui->List1->currentText());
        ui->cmdEditSchedule->setEnabled(buttons.editSchedule);
        ui->cmdCopy->setEnabled(buttons.copy);
        ui->cmdDeleteSchedule->setEnabled(buttons.deleteSchedule);
        ui->cmdSwapAC->setEnabled(buttons.swapAircraft);
        if (buttons.deleteCaption) {
            ui->cmdDeleteSchedule->setText(*buttons.deleteCaption == "Delete" ? QStringLiteral("&Delete")
                                                                              : QStringLiteral("Un&delete"));
        }
    });
}

void frmMain::cmdListall_Click() noexcept {
    const StandardTrap trap{"sub cmdlistall_click", module};
    trap([&] { displaylist("", "", "", false, 0); });
}

void frmMain::cmdListICAO_Click() noexcept {
    const StandardTrap trap{"sub cmdlisticao_click", module};
    trap([&] { displaylist(upper(ui->cmbICAO->text()), "", "", false, 0); });
}

void frmMain::cmdListACnum_Click() noexcept {
    const StandardTrap trap{"sub cmdlistacnum_click", module};
    trap([&] { displaylist("", upper(ui->cmbAC->text()), "", false, 0); });
}

void frmMain::cmdListUniqueAC_Click() noexcept {
    const StandardTrap trap{"sub cmdlistuniqueac_click", module};
    trap([&] { displaylist("", upper(ui->cmbAC->text()), "", true, 0); });
}

void frmMain::cmdListUniqueICAO_Click() noexcept {
    const StandardTrap trap{"sub cmdlistuniqueicao_click", module};
    trap([&] { displaylist(upper(ui->cmbICAO->text()), "", "", true, 0); });
}

void frmMain::cmbAC_Click() noexcept {
    const StandardTrap trap{"sub cmbac_click", module};
    trap([&] { ui->txtATCAircraft->setText(toQString(extractcode(ui->cmbAC->text()))); });
}

void frmMain::cmbICAO_Click() noexcept {
    const StandardTrap trap{"sub cmbicao_click", module};
    trap([&] { ui->txtICAO1->setText(toQString(extractcode(ui->cmbICAO->text()))); });
    trap([&] {
        for (QLineEdit* const box : {ui->txtSplitICAO, ui->txtSplitIcao1, ui->txtDelByICAO, ui->txtSplitACICAO}) {
            box->setText(ui->txtICAO1->text());
        }
    });
}

void frmMain::List1_Click() noexcept {
    if (m_ignorelist1click) {
        return;
    }
    const StandardTrap trap{"sub list1_click", module};
    disablelegbuttons();
    disableschedbuttons();
    trap([&] { displayselected(); });
    enableschedbuttons();
}

void frmMain::List2_Click() noexcept {
    enablelegbuttons();
}

void frmMain::List3_Click() noexcept {
    const StandardTrap trap{"sub list3_click", module};
    trap([&] { ui->cmbAC->setText(ui->List3->currentText()); });
}

} // namespace vantor
