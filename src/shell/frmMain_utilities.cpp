// frmMain: the utilities panel, five bulk changes of which one is shown at a time.
#include "bulk/airport_split.h"
#include "bulk/atc_percentage.h"
#include "bulk/delete_by_airport.h"
#include "bulk/flight_level.h"
#include "foundation/host.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "shell/frmMain.h"
#include "ui_frmMain.h"

namespace vantor {

namespace {

constexpr std::string_view module = "frmMain";

std::string textOf(const QLineEdit* box) {
    return fromQString(box->text());
}

// Shows a rewritten text; one that stayed keeps its cursor.
void rewrite(QLineEdit* box, std::string_view text) {
    if (textOf(box) != text) {
        box->setText(toQString(text));
    }
}

} // namespace

void frmMain::connectUtilityCommands() {
    const auto shows = [this](QRadioButton* option, QWidget* frame) {
        connect(option, &QRadioButton::clicked, this, [this, frame] { showUtilityFrame(*frame); });
    };
    shows(ui->optmass, ui->frameMassUpdate);
    shows(ui->optATCPercent, ui->frameSetATCPercent);
    shows(ui->optDelByIcao, ui->frameDelByIcao);
    shows(ui->optSplit, ui->frameSplit);
    shows(ui->optSplitAC, ui->frameSplitAC);
    command(ui->cmdChangeFL, &frmMain::cmdChangeFL_Click);
    command(ui->cmdUpdateATCPercent, &frmMain::cmdUpdateATCPercent_Click);
    command(ui->cmdDeleteByICAO, &frmMain::cmdDeleteByICAO_Click);
    connect(ui->cmbPC1, &ComboBox::rowClicked, this, &frmMain::cmbPC1_Click);
    command(ui->cmdDoSplit, &frmMain::cmdDoSplit_Click);
    command(ui->cmdSplitAC, &frmMain::cmdSplitAC_Click);
}

void frmMain::hideframes() noexcept {
    const StandardTrap trap{"sub hideframes", module};
    trap([&] { ui->frameSplit->hide(); });
    trap([&] { ui->frameMassUpdate->hide(); });
    trap([&] { ui->frameSetATCPercent->hide(); });
    trap([&] { ui->frameDelByIcao->hide(); });
    trap([&] { ui->frameSplitAC->hide(); });
}

void frmMain::showUtilityFrame(QWidget& frame) noexcept {
    const StandardTrap trap{"sub showutilityframe", module};
    hideframes();
    trap([&] { frame.show(); });
}

void frmMain::finishBulkChange(const BulkOutcome& outcome) noexcept {
    const StandardTrap trap{"sub finishbulkchange", module};
    if (outcome.setsUnsaved) {
        unsavedchanges = true;
    }
    trap([&] { host().message(outcome.message); });
    if (outcome.clearsLists) {
        trap([&] { ui->List1->clear(); });
        trap([&] { ui->List2->clear(); });
    }
}

void frmMain::cmdChangeFL_Click() noexcept {
    const StandardTrap trap{"sub cmdchangefl_click", module};
    trap([&] {
        FlightLevelBoxes boxes{textOf(ui->txtNewFL), textOf(ui->txtICAO1), textOf(ui->txtICAO2)};
        const BulkOutcome outcome = changeFlightLevel(boxes);
        rewrite(ui->txtICAO1, boxes.icao1);
        rewrite(ui->txtICAO2, boxes.icao2);
        finishBulkChange(outcome);
    });
}

void frmMain::cmdUpdateATCPercent_Click() noexcept {
    const StandardTrap trap{"sub cmdupdateatcpercent_click", module};
    trap([&] { finishBulkChange(updateAtcPercentage(textOf(ui->txtATCPercent), textOf(ui->txtATCAircraft))); });
}

void frmMain::cmdDeleteByICAO_Click() noexcept {
    const StandardTrap trap{"sub cmddeletebyicao_click", module};
    std::string icao;
    AirportDeletion deletion;
    trap([&] {
        icao = textOf(ui->txtDelByICAO);
        deletion = prepareAirportDeletion(icao);
        rewrite(ui->txtDelByICAO, icao);
    });
    if (!deletion.valid) {
        trap([&] { host().message(deletion.message); });
        return;
    }
    bool sure = false;
    trap([&] { sure = host().askYesNo(deletion.message); });
    if (!sure) {
        return;
    }
    trap([&] { busymouse(); });
    trap([&] { ui->List1->clear(); });
    trap([&] { ui->List2->clear(); });
    trap([&] { host().pumpEvents(Pump::PaintAndTimers); });
    // The unsaved-changes flag stays as it is; it is meant.
    deleteByAirport(icao);
    trap([&] { normalmouse(); });
}

void frmMain::cmbPC1_Click() noexcept {
    const StandardTrap trap{"sub cmbpc1_click", module};
    trap([&] { ui->lblPercent2->setText(toQString(remainingShare(ui->cmbPC1->text()))); });
}

void frmMain::cmdDoSplit_Click() noexcept {
    const StandardTrap trap{"sub cmddosplit_click", module};
    trap([&] {
        SplitBoxes boxes{textOf(ui->txtSplitICAO), textOf(ui->txtSplitIcao1), textOf(ui->txtSplitIcao2),
                         ui->cmbPC1->text()};
        const BulkOutcome outcome = splitAirport(boxes);
        rewrite(ui->txtSplitIcao1, boxes.icao1);
        rewrite(ui->txtSplitIcao2, boxes.icao2);
        finishBulkChange(outcome);
    });
}

void frmMain::cmdSplitAC_Click() noexcept {
    const StandardTrap trap{"sub cmdsplitac_click", module};
    trap([&] {
        SplitAircraftBoxes boxes{textOf(ui->txtSplitACSource), textOf(ui->txtSplitACNewICAO),
                                 textOf(ui->txtSplitACICAO)};
        const BulkOutcome outcome = splitAircraft(boxes);
        rewrite(ui->txtSplitACSource, boxes.aircraftCode);
        rewrite(ui->txtSplitACNewICAO, boxes.newIcao);
        rewrite(ui->txtSplitACICAO, boxes.oldIcao);
        finishBulkChange(outcome);
    });
}

} // namespace vantor
