#include "shell/utility_commands.h"

#include "bulk/airport_split.h"
#include "bulk/atc_percentage.h"
#include "bulk/delete_by_airport.h"
#include "bulk/flight_level.h"
#include "core/codes.h"
#include "core/journal.h"
#include "foundation/busy_pointer.h"
#include "platform/code_page.h"
#include "shell/command_runner.h"
#include "shell/lists.h"
#include "shell/workspace.h"
#include "ui_utilities_box.h"

#include <array>

namespace vantor {

namespace {

constexpr std::string_view module = "frmMain";

std::array<QWidget*, 5> framesOf(const Ui::UtilitiesBox& box) {
    return {box.frameMassUpdate, box.frameSetATCPercent, box.frameDelByIcao, box.frameSplit, box.frameSplitAC};
}

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

UtilityCommands::UtilityCommands(Ui::UtilitiesBox& ui, ComboBox* cmbAC, ComboBox* cmbICAO, Workspace& workspace,
                                 CommandRunner& runner, Lists& lists)
    : m_ui(ui), m_cmbAC(cmbAC), m_cmbICAO(cmbICAO), m_workspace(workspace), m_lists(lists) {
    using Self = UtilityCommands;
    const std::array options = {ui.optmass, ui.optATCPercent, ui.optDelByIcao, ui.optSplit, ui.optSplitAC};
    for (std::size_t i = 0; i < options.size(); ++i) {
        QObject::connect(options.at(i), &QRadioButton::clicked, options.at(i),
                         [this, frame = framesOf(ui).at(i)] { showFrame(*frame); });
    }
    runner.command(ui.cmdChangeFL, {"sub cmdchangefl_click", module}, this, &Self::changeLevel);
    runner.command(ui.cmdUpdateATCPercent, {"sub cmdupdateatcpercent_click", module}, this, &Self::changePercentage);
    runner.command(ui.cmdDeleteByICAO, {"sub cmddeletebyicao_click", module}, this, &Self::deleteByIcao);
    runner.command(ui.cmdDoSplit, {"sub cmddosplit_click", module}, this, &Self::split);
    runner.command(ui.cmdSplitAC, {"sub cmdsplitac_click", module}, this, &Self::splitByAircraft);
    CommandRunner::rowClick(cmbAC, {"sub cmbac_click", module}, this, &Self::takeAircraft);
    CommandRunner::rowClick(cmbICAO, {"sub cmbicao_click", module}, this, &Self::takeAirport);
    CommandRunner::rowClick(ui.cmbPC1, {"sub cmbpc1_click", module}, this, &Self::takeShare);
}

void UtilityCommands::fillShares() {
    for (int percent = 0; percent <= 100; percent += 5) {
        m_ui.cmbPC1->addRow(std::to_string(percent) + "%");
    }
    m_ui.cmbPC1->setCurrentRow(0);
}

void UtilityCommands::fitFrames() {
    QSize size;
    for (QWidget* const frame : framesOf(m_ui)) {
        frame->ensurePolished();
        size = size.expandedTo(frame->minimumSizeHint());
    }
    for (QWidget* const frame : framesOf(m_ui)) {
        frame->setMinimumSize(size);
    }
}

void UtilityCommands::showFrame(QWidget& frame) {
    for (QWidget* const other : framesOf(m_ui)) {
        other->hide(); // all of them first: two at once would widen the panel
    }
    frame.show();
}

std::string UtilityCommands::finish(const BulkOutcome& outcome, const std::string& did) {
    const StandardTrap trap{"sub finishbulkchange", module};
    m_workspace.unsavedchanges = m_workspace.unsavedchanges || outcome.setsUnsaved;
    trap(&Host::message, host(), outcome.message);
    if (outcome.clearsLists) {
        m_lists.clear();
    }
    if (!outcome.setsUnsaved) {
        return {};
    }
    return journal().openChanges() ? did : outcome.message; // the flag is set also where nothing matched
}

std::string UtilityCommands::changeLevel(const StandardTrap& trap) {
    FlightLevelBoxes boxes{textOf(m_ui.txtNewFL), textOf(m_ui.txtICAO1), textOf(m_ui.txtICAO2)};
    const BulkOutcome outcome = changeFlightLevel(trap, boxes);
    rewrite(m_ui.txtICAO1, boxes.icao1);
    rewrite(m_ui.txtICAO2, boxes.icao2);
    return finish(outcome, "Flight level " + boxes.newFL + " from " + boxes.icao1 + " to " + boxes.icao2);
}

std::string UtilityCommands::changePercentage(const StandardTrap& trap) {
    const std::string percent = textOf(m_ui.txtATCPercent);
    const std::string aircraftCode = textOf(m_ui.txtATCAircraft);
    return finish(updateAtcPercentage(trap, percent, aircraftCode), "ATC " + percent + "% for " + aircraftCode);
}

std::string UtilityCommands::deleteByIcao(const StandardTrap& trap) {
    std::string icao = textOf(m_ui.txtDelByICAO);
    const AirportDeletion deletion = prepareAirportDeletion(icao);
    rewrite(m_ui.txtDelByICAO, icao);
    if (!deletion.valid) {
        host().message(deletion.message);
        return {};
    }
    if (!host().askYesNo(deletion.message)) {
        return {};
    }
    const BusyPointer busy{trap};
    m_lists.clear();
    trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
    // Quirk: the unsaved-changes flag stays as it is.
    const AirportDeletionCounts gone = deleteByAirport(trap, icao);
    return "Delete by ICAO " + icao + ": " + counted(gone.schedules, "schedule") + ", " + counted(gone.legs, "leg");
}

std::string UtilityCommands::split(const StandardTrap& trap) {
    SplitBoxes boxes{textOf(m_ui.txtSplitICAO), textOf(m_ui.txtSplitIcao1), textOf(m_ui.txtSplitIcao2),
                     m_ui.cmbPC1->text()};
    const BulkOutcome outcome = splitAirport(trap, boxes);
    rewrite(m_ui.txtSplitIcao1, boxes.icao1);
    rewrite(m_ui.txtSplitIcao2, boxes.icao2);
    return finish(outcome, "Split " + boxes.icao + " into " + boxes.icao1 + " and " + boxes.icao2);
}

std::string UtilityCommands::splitByAircraft(const StandardTrap& trap) {
    SplitAircraftBoxes boxes{textOf(m_ui.txtSplitACSource), textOf(m_ui.txtSplitACNewICAO),
                             textOf(m_ui.txtSplitACICAO)};
    const BulkOutcome outcome = splitAircraft(trap, boxes);
    rewrite(m_ui.txtSplitACSource, boxes.aircraftCode);
    rewrite(m_ui.txtSplitACNewICAO, boxes.newIcao);
    rewrite(m_ui.txtSplitACICAO, boxes.oldIcao);
    return finish(outcome, "Move " + boxes.aircraftCode + " from " + boxes.oldIcao + " to " + boxes.newIcao);
}

void UtilityCommands::takeAircraft(const StandardTrap& /*trap*/) {
    m_ui.txtATCAircraft->setText(toQString(extractcode(m_cmbAC->text())));
}

void UtilityCommands::takeAirport(const StandardTrap& /*trap*/) {
    m_ui.txtICAO1->setText(toQString(extractcode(m_cmbICAO->text())));
    for (QLineEdit* const box : {m_ui.txtSplitICAO, m_ui.txtSplitIcao1, m_ui.txtDelByICAO, m_ui.txtSplitACICAO}) {
        box->setText(m_ui.txtICAO1->text());
    }
}

void UtilityCommands::takeShare(const StandardTrap& /*trap*/) {
    m_ui.lblPercent2->setText(toQString(remainingShare(m_ui.cmbPC1->text())));
}

} // namespace vantor
