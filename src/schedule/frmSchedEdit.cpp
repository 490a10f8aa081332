#include "schedule/frmSchedEdit.h"

#include "core/codes.h"
#include "foundation/host.h"
#include "foundation/numbers.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "platform/combo_box.h"
#include "platform/list_box.h"
#include "schedule/frmFind.h"
#include "ui_frmSchedEdit.h"

#include <QRegularExpressionValidator>
#include <QScopedValueRollback>
#include <QStyle>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace vantor {

namespace {

constexpr std::string_view module = "frmFlightEdit";
constexpr int defaultRepeat = 3; // "6h"
constexpr int sunday = 1;        // its row in the day boxes
constexpr int weekData = -1;     // item data of "WEEK"

const QColor overADayColour(192, 0, 0);
const QColor withinADayColour(0, 128, 0);

using Lock = QScopedValueRollback<bool>;

// For the statements whose faults are passed over without an entry in the ring.
template <class Statement>
void passOver(Statement&& statement) noexcept {
    try {
        std::forward<Statement>(statement)();
    } catch (...) {
        return; // the next statement runs
    }
}

std::string textOf(const QLineEdit* box) {
    return fromQString(box->text());
}

} // namespace

std::optional<ScheduleRec> editSchedule(QWidget* parent, const ScheduleRec& record, EditorRows rows,
                                        int startRow) noexcept {
    const StandardTrap trap{"function editschedule", module};
    std::optional<ScheduleRec> edited;
    trap([&] {
        trap(busymouse);
        frmSchedEdit editor(parent, record, std::move(rows), startRow);
        trap(normalmouse);
        trap([&] { editor.exec(); });
        edited = editor.edited();
    });
    return edited;
}

frmSchedEdit::frmSchedEdit(QWidget* parent, const ScheduleRec& record, EditorRows rows, int startRow)
    : QDialog(parent), ui(std::make_unique<Ui::frmSchedEdit>()) {
    ui->setupUi(this);
    keepRoom();
    guardFields();
    connectControls();
    Form_Load();
    offer(std::move(rows));
    transfersched(record);
    ui->List1->setCurrentRow(startRow); // a click as the user's own, unless it is the first row
}

frmSchedEdit::~frmSchedEdit() = default;

std::optional<ScheduleRec> frmSchedEdit::edited() const {
    return m_cancelled ? std::nullopt : std::optional(m_draft.sched);
}

ComboBox& frmSchedEdit::cmbAirport(int index) const {
    return index == 0 ? *ui->cmbAirport0 : *ui->cmbAirport1;
}

// What a layout file can't tell: times are never clipped, and the marks stay in place when the arrival's day goes.
void frmSchedEdit::keepRoom() {
    const int timeWidth = fontMetrics().horizontalAdvance(QStringLiteral("  00:00:00  "));
    ui->List1->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("MMMM - MMMM (DEL) ")) +
                               style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    for (QLineEdit* const box : {ui->txtTime, ui->txtETA, ui->txtAltitude, ui->txtFlightNum}) {
        box->setMinimumWidth(timeWidth);
    }
    ui->txtTime->setMaximumWidth(timeWidth); // the day boxes stand below each other
    ui->txtETA->setMaximumWidth(timeWidth);
    for (QWidget* const widget : {static_cast<QWidget*>(ui->lblDay2), static_cast<QWidget*>(ui->cmbDay1)}) {
        QSizePolicy policy = widget->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        widget->setSizePolicy(policy);
    }
}

// Texts that go into the file as they are: a comma, a comment mark or a line's end would part the line there, and the
// file could not be read again.
void frmSchedEdit::guardFields() {
    const QRegularExpression fits(QStringLiteral("(?:/?[^,;/\\x00-\\x1f])*/?"));
    for (QLineEdit* const box : {ui->txtRego, ui->txtPercent, ui->txtFlightNum}) {
        box->setValidator(new QRegularExpressionValidator(fits, box));
    }
}

void frmSchedEdit::connectControls() {
    connect(ui->cmbRepeat, &ComboBox::rowClicked, this, &frmSchedEdit::cmbRepeat_click);
    connect(ui->List1, &ListBox::rowClicked, this, &frmSchedEdit::List1_click);
    connect(ui->cmbAirport0, &ComboBox::rowClicked, this, [this] { cmbAirport_click(0); });
    connect(ui->cmbAirport1, &ComboBox::rowClicked, this, [this] { cmbAirport_click(1); });
    connect(ui->chkFix, &QCheckBox::toggled, this, &frmSchedEdit::chkFix_click);
    connect(ui->chkUseRego, &QCheckBox::toggled, this, &frmSchedEdit::chkUseRego_click);
    connect(ui->cmdAddLeg, &QPushButton::clicked, this, &frmSchedEdit::cmdAddLeg_Click);
    connect(ui->cmdInsertLeg, &QPushButton::clicked, this, &frmSchedEdit::cmdInsertLeg_Click);
    connect(ui->cmdDeleteLeg, &QPushButton::clicked, this, &frmSchedEdit::cmdDeleteLeg_Click);
    connect(ui->cmdFind0, &QPushButton::clicked, this, [this] { cmdFind_Click(0); });
    connect(ui->cmdFind1, &QPushButton::clicked, this, [this] { cmdFind_Click(1); });
    connect(ui->cmdFind2, &QPushButton::clicked, this, [this] { cmdFind_Click(2); });
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmSchedEdit::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmSchedEdit::cmdCancel_Click);
}

void frmSchedEdit::Form_Load() noexcept {
    const StandardTrap trap{"sub form_load", module};
    trap([&] {
        for (ComboBox* const days : {ui->cmbDay0, ui->cmbDay1}) {
            days->setRows({{"N/A"}, {"Sun"}, {"Mon"}, {"Tue"}, {"Wed"}, {"Thu"}, {"Fri"}, {"Sat"}});
            days->setCurrentRow(0);
        }
    });
    trap([&] {
        ui->cmbRepeat->setRows(
            {{"1h", 1}, {"2h", 2}, {"4h", 4}, {"6h", 6}, {"8h", 8}, {"12h", 12}, {"24h", 24}, {"WEEK", weekData}});
    });
    trap([&] { ui->cmbRepeat->setCurrentRow(defaultRepeat); });
    trap([&] { ui->optIFR->setChecked(true); });
    trap([&] { ui->txtPercent->setText(QStringLiteral("50")); });
    trap([&] { ui->lblGMT->setText(toQString(gmtstring())); });
}

void frmSchedEdit::offer(EditorRows rows) noexcept {
    const StandardTrap trap{"sub prepareschedform", module};
    const Lock lock(m_locked, true);
    trap([&] {
        ui->cmbAircraft->setRows(std::move(rows.aircraft));
        ui->cmbAircraft->setCurrentRow(0);
    });
    trap(&ComboBox::setRows, ui->cmbAirport0, rows.airports);
    trap(&ComboBox::setRows, ui->cmbAirport1, std::move(rows.airports));
}

void frmSchedEdit::transfersched(const ScheduleRec& rec) noexcept {
    const StandardTrap trap{"sub transfersched", module};
    const Lock lock(m_locked, true);
    trap([&] { m_draft = {rec, {}}; });
    fillschedinfo();
    m_currentleg = 1;
    fillleglist(0);
    displayleginfo(m_currentleg);
}

void frmSchedEdit::fillschedinfo() noexcept {
    const StandardTrap trap{"sub fillschedinfo", module};
    const ScheduleRec& sched = m_draft.sched;
    trap([&] { ui->txtRego->setText(toQString(sched.tailnumber.text())); });
    trap([&] {
        const int row = aircraftrow(ui->cmbAircraft->rows(), sched.acnum.text());
        if (row >= 0) {
            ui->cmbAircraft->setCurrentRow(row);
        }
    });
    trap([&] { ui->txtPercent->setText(toQString(generalNumber(val(sched.percent.text())))); });
    trap([&] {
        const bool ifr = upper(sched.rules.text()) == "IFR";
        ui->optIFR->setChecked(ifr);
        ui->optVFR->setChecked(!ifr);
    });
    // A change of row is a click even while locked, and so the period takes the row's text: 24Hr becomes 24h, but 6Hr
    // on the default row stays. It is meant.
    trap([&] {
        const ListRows& rows = ui->cmbRepeat->rows();
        if (sched.weekly) {
            ui->cmbRepeat->setCurrentRow(ui->cmbRepeat->rowCount() - 1);
            return;
        }
        const double hours = val(sched.period.text());
        const auto found = std::ranges::find_if(rows, [&](const ListRow& row) { return row.itemData == hours; });
        if (found != rows.end()) {
            ui->cmbRepeat->setCurrentRow(static_cast<int>(found - rows.begin()));
        }
    });
}

void frmSchedEdit::fillleglist(int selected) noexcept {
    const StandardTrap trap{"sub fillleglist", module};
    trap([&] { ui->List1->setRows(legrows(m_draft.sched)); });
    trap([&] {
        if (m_draft.sched.legcount > 0) {
            ui->List1->setCurrentRow(selected < ui->List1->rowCount() ? selected : 0);
        }
    });
    trap([&] { host().pumpEvents(Pump::PaintAndTimers); });
}

void frmSchedEdit::displayleginfo(std::int16_t leg) noexcept {
    const auto info = [&]() -> const LegRec& { return std::as_const(m_draft).leg(leg); };
    const auto goToAirport = [&](ComboBox* box, std::string_view icao) {
        const int row = rowstartingwith(box->rows(), icao);
        if (row >= 0) {
            box->setCurrentRow(row);
        }
    };
    passOver([&] { goToAirport(ui->cmbAirport0, info().fromicao.text()); });
    passOver([&] { goToAirport(ui->cmbAirport1, info().toicao.text()); });
    passOver([&] { ui->txtAltitude->setText(QString::number(info().flightlevel)); });
    passOver([&] { ui->txtFlightNum->setText(toQString(info().flightnum.text())); });
    passOver([&] { ui->chkTNG->setChecked(info().tng); });
    passOver([&] { ui->chkFix->setChecked(info().atflag); });
    if (m_draft.sched.weekly) {
        passOver([&] { ui->cmbDay0->setCurrentRow(info().depday + 1); });
        passOver([&] { ui->cmbDay1->setCurrentRow(info().arrday + 1); });
    } else {
        passOver([&] { ui->cmbDay0->setCurrentRow(0); });
        passOver([&] { ui->cmbDay0->setEnabled(false); });
    }
    passOver([&] { ui->chkUseRego->setChecked(info().legtype.text() == "R"); });
    passOver([&] { ui->txtTime->setText(toQString(localtimetext(info().dep.text()))); });
    passOver([&] { ui->txtETA->setText(toQString(localtimetext(info().arr.text()))); });
    passOver([&] { displaydistance(m_currentleg, info().fromicao.text(), info().toicao.text()); });
}

// The two airports are accepted and unused.
void frmSchedEdit::displaydistance(std::int16_t leg, std::string_view /*from*/, std::string_view /*to*/) noexcept {
    const StandardTrap trap{"sub displaydistance", module};
    trap([&] { ui->lblDistance->setText(toQString(distancetext(std::as_const(m_draft).leg(leg)))); });
    trap([&] {
        const bool over = isoveraday(std::as_const(m_draft).leg(leg));
        QPalette palette = ui->lblDistance->palette();
        palette.setColor(QPalette::WindowText, over ? overADayColour : withinADayColour);
        palette.setColor(QPalette::Window, this->palette().color(QPalette::Base));
        ui->lblDistance->setPalette(palette);
        ui->lblDistance->setToolTip(over ? QStringLiteral("This leg is over 24 hours long!") : QString());
    });
}

void frmSchedEdit::addleg() noexcept {
    addlegtosched(true);
}

void frmSchedEdit::insertleg() noexcept {
    addlegtosched(false);
}

void frmSchedEdit::addlegtosched(bool atend) noexcept {
    const StandardTrap trap{"sub addlegtosched", module};
    vantor::addlegtosched(trap, m_draft, atend, ui->List1->rowCount(), ui->List1->currentRow(),
                          ui->chkTNG->isChecked());
    fillleglist(ui->List1->currentRow());
}

LegControls frmSchedEdit::shownControls() const {
    LegControls controls;
    controls.aircraft = ui->cmbAircraft->text();
    controls.repeat = ui->cmbRepeat->text();
    controls.time = textOf(ui->txtTime);
    controls.eta = textOf(ui->txtETA);
    controls.altitude = textOf(ui->txtAltitude);
    controls.flightnum = textOf(ui->txtFlightNum);
    // The row picked last counts; a text typed over it changes nothing.
    controls.departureDay = ui->cmbDay0->currentIndex();
    controls.arrivalDay = ui->cmbDay1->currentIndex();
    controls.fix = ui->chkFix->isChecked();
    controls.touchAndGo = ui->chkTNG->isChecked();
    controls.useRegistration = ui->chkUseRego->isChecked();
    return controls;
}

void frmSchedEdit::storeleg() {
    const LegStored stored = vantor::storeleg(m_draft.sched, m_currentleg, shownControls());
    if (stored.moveDayToSunday) {
        ui->cmbDay0->setCurrentRow(sunday);
    }
    if (stored.invalidTime) {
        throw invalidTimeError();
    }
}

void frmSchedEdit::cmbRepeat_click() noexcept {
    const StandardTrap trap{"sub cmbrepeat_click", module};
    trap([&] { m_draft.sched.period = ui->cmbRepeat->text(); });
    trap([&] {
        const bool weekly = ui->cmbRepeat->text() == "WEEK";
        ui->cmbDay0->setEnabled(weekly);
        ui->cmbDay1->setEnabled(weekly);
        m_draft.sched.weekly = weekly;
    });
}

bool frmSchedEdit::storeCurrentLeg() noexcept {
    try {
        if (m_currentleg != 0) {
            storeleg();
        }
    } catch (const Error& error) {
        if (error.is(ErrorCode::Loader)) {
            passOver([&] { host().message(error.description()); });
            return false;
        }
    } catch (...) {
        return true; // any other fault is passed over
    }
    return true;
}

void frmSchedEdit::List1_click() noexcept {
    if (m_locked) {
        return;
    }
    if (!storeCurrentLeg()) {
        return; // the list shows the new row while the old leg stays in the frame
    }
    passOver([&] { m_currentleg = toInt16(ui->List1->currentRow() + 1); });
    if (m_currentleg != 0) {
        const Lock lock(m_locked, true);
        displayleginfo(m_currentleg);
    }
}

void frmSchedEdit::cmbAirport_click(int index) noexcept {
    if (m_locked || m_draft.sched.legcount < 1) {
        return;
    }
    const StandardTrap trap{"sub cmbairport_click", module};
    std::string code;
    trap([&] { code = extractcode(cmbAirport(index).text()); });
    changeairport(trap, m_draft, m_currentleg, index == 0 ? LegEnd::Departure : LegEnd::Destination, code);
    fillleglist(ui->List1->currentRow());
}

void frmSchedEdit::chkFix_click() noexcept {
    const StandardTrap trap{"sub chkfix_click", module};
    const bool fix = ui->chkFix->isChecked();
    trap([&] { ui->cmbDay1->setVisible(fix); });
    trap([&] { ui->lblDay2->setVisible(fix); });
    trap([&] { ui->txtETA->setEnabled(fix); });
}

void frmSchedEdit::chkUseRego_click() noexcept {
    const StandardTrap trap{"sub chkuserego_click", module};
    trap([&] { ui->txtFlightNum->setEnabled(!ui->chkUseRego->isChecked()); });
}

void frmSchedEdit::cmdAddLeg_Click() noexcept {
    addleg();
}

void frmSchedEdit::cmdInsertLeg_Click() noexcept {
    insertleg();
}

void frmSchedEdit::cmdDeleteLeg_Click() noexcept {
    const StandardTrap trap{"sub cmddeleteleg_click", module};
    if (ui->List1->rowCount() == 0) {
        return;
    }
    const int row = ui->List1->currentRow();
    deleteleg(m_draft.sched, row + 1);
    m_draft.leg0 = LegRec{};
    // The row number stands as a leg number: the leg shown is two above the one deleted, leg 0 (blank) for the first
    // two rows, and the row made current is that of the leg after the one shown. Both offsets are meant.
    trap([&] { m_currentleg = toInt16(std::max(row - 1, 0)); });
    const Lock lock(m_locked, true);
    displayleginfo(m_currentleg);
    fillleglist(m_currentleg);
}

void frmSchedEdit::cmdFind_Click(int index) noexcept {
    const StandardTrap trap{"sub cmdfind_click", module};
    trap([&] {
        ComboBox& box = index == 0 ? *ui->cmbAircraft : cmbAirport(index - 1);
        if (box.rowCount() > 0) {
            findstring(box, this);
        }
    });
}

void frmSchedEdit::cmdOK_Click() noexcept {
    if (!storeCurrentLeg()) {
        return;
    }
    ScheduleRec& sched = m_draft.sched;
    passOver([&] { sched.acnum = extractcode(ui->cmbAircraft->text()); });
    passOver([&] { sched.tailnumber = textOf(ui->txtRego); });
    passOver([&] { sched.rules = ui->optIFR->isChecked() ? "IFR" : "VFR"; });
    passOver([&] { sched.percent = textOf(ui->txtPercent) + "%"; });
    completelegs(sched);
    passOver([&] { accept(); });
    passOver([&] { host().pumpEvents(Pump::PaintAndTimers); });
}

void frmSchedEdit::cmdCancel_Click() noexcept {
    const StandardTrap trap{"sub cmdcancel_click", module};
    m_cancelled = true;
    trap([&] { QDialog::reject(); });
    trap([&] { host().pumpEvents(Pump::PaintAndTimers); });
}

void frmSchedEdit::reject() {
    cmdCancel_Click();
}

} // namespace vantor
