#include "simulator/frmAircraftSub.h"

#include "foundation/busy_pointer.h"
#include "foundation/host.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "platform/list_box.h"
#include "simulator/aircraft_changes.h"
#include "ui_frmAircraftSub.h"

#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace vantor {

namespace {
constexpr std::string_view module = "frmAircraftSub";
} // namespace

std::optional<ChosenAircraft> chooseAircraft(QWidget* parent, std::string_view current, ListRows rows) noexcept {
    const StandardTrap trap{"sub getsub", module};
    std::optional<ChosenAircraft> chosen;
    trap([&] { // one trap for all steps: without its rows there is nothing to ask
        auto busy = std::make_optional<BusyPointer>(trap);
        frmAircraftSub dialog(parent, current, std::move(rows));
        busy.reset();
        trap(&frmAircraftSub::exec, &dialog);
        chosen = dialog.chosen();
    });
    return chosen;
}

frmAircraftSub::frmAircraftSub(QWidget* parent, std::string_view current, ListRows rows)
    : QDialog(parent), ui(std::make_unique<Ui::frmAircraftSub>()), m_current(current) {
    ui->setupUi(this);
    ui->lblCurrent->setText(toQString(current));
    ui->List2->setRows(std::move(rows));
    refilllist();
    if (parent != nullptr) {
        setWindowIcon(parent->window()->windowIcon());
    }
    connect(ui->cmdApply, &QPushButton::clicked, this, &frmAircraftSub::cmdApply_Click);
    connect(ui->cmdClear, &QPushButton::clicked, this, &frmAircraftSub::cmdClear_Click);
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmAircraftSub::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmAircraftSub::cmdCancel_Click);
    connect(ui->txtFilter, &QLineEdit::textEdited, this, &frmAircraftSub::cmdApply_Click);
    connect(ui->List1, &ListBox::rowActivated, this, &frmAircraftSub::cmdOK_Click);
    ui->txtFilter->setFocus();
}

frmAircraftSub::~frmAircraftSub() = default;

void frmAircraftSub::refilllist() noexcept {
    const StandardTrap trap{"sub refilllist", module};
    trap([&] {
        const std::string picked = ui->List1->currentText();
        ListRows rows = filterAircraftRows(ui->List2->rows(), fromQString(ui->txtFilter->text()));
        const auto kept = std::ranges::find(rows, picked, &ListRow::text);
        const bool keeps = ui->List1->currentRow() >= 0 && kept != rows.end();
        const auto row = keeps ? static_cast<int>(kept - rows.begin()) : -1;
        ui->List1->setRows(std::move(rows));
        ui->List1->setCurrentRow(row); // narrowing the list must not lose what was picked
    });
}

void frmAircraftSub::cmdApply_Click() noexcept {
    refilllist();
}

void frmAircraftSub::cmdClear_Click() noexcept {
    ui->txtFilter->clear();
    refilllist();
}

void frmAircraftSub::cmdOK_Click() noexcept {
    const StandardTrap trap{"sub cmdok_click", module};
    if (ui->List1->currentRow() < 0) {
        trap(&Host::message, host(), "Please click a substitute aircraft in the list box");
        return;
    }
    const std::string row = ui->List1->currentText();
    m_chosen = {substituteText(m_current, row), row};
    accept();
    trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
}

void frmAircraftSub::cmdCancel_Click() noexcept {
    const StandardTrap trap{"sub cmdcancel_click", module};
    QDialog::reject();
    trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
}

void frmAircraftSub::reject() {
    cmdCancel_Click();
}

void frmAircraftSub::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // From the filter both keys lead into the list; a second Enter accepts the row.
    if (focusWidget() == ui->txtFilter && (enter || event->key() == Qt::Key_Down)) {
        ui->List1->setFocus();
        ui->List1->setCurrentRow(std::max(ui->List1->currentRow(), 0));
        return;
    }
    QDialog::keyPressEvent(event);
}

} // namespace vantor
