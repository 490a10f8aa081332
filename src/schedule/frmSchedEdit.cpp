#include "schedule/frmSchedEdit.h"

#include "core/codes.h"
#include "foundation/host.h"
#include "foundation/numbers.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "platform/colours.h"
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
    trap([&] { // one trap for all steps: an editor that holds no schedule must not be shown
        trap(busymouse);
        frmSchedEdit editor(parent, record, std::move(rows), startRow);
        trap(normalmouse);
        trap(&frmSchedEdit::exec, &editor);
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
    connect(ui->cmdAddLeg, &QPushButton::clicked, this, [this] { addlegtosched(true); });
    connect(ui->cmdInsertLeg, &QPushButton::clicked, this, [this] { addlegtosched(false); });
    connect(ui->cmdDeleteLeg, &QPushButton::clicked, this, &frmSchedEdit::cmdDeleteLeg_Click);
    connect(ui->cmdFind0, &QPushButton::clicked, this, [this] { cmdFind_Click(0); });
    connect(ui->cmdFind1, &QPushButton::clicked, this, [this] { cmdFind_Click(1); });
    connect(ui->cmdFind2, &QPushButton::clicked, this, [this] { cmdFind_Click(2); });
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmSchedEdit::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmSchedEdit::cmdCancel_Click);
}

void frmSchedEdit::Form_Load() noexcept {
    for (ComboBox* const days : {ui->cmbDay0, ui->cmbDay1}) {
        days->setRows({{"N/A"}, {"Sun"}, {"Mon"}, {"Tue"}, {"Wed"}, {"Thu"}, {"Fri"}, {"Sat"}});
        days->setCurrentRow(0);
    }
    for (ComboBox* const box : {ui->cmbAirport0, ui->cmbAirport1, ui->cmbDay0, ui->cmbDay1}) {
        box->setMarksTypedText();
    }
    ui->cmbRepeat->setRows(
        {{"1h", 1}, {"2h", 2}, {"4h", 4}, {"6h", 6}, {"8h", 8}, {"12h", 12}, {"24h", 24}, {"WEEK", weekData}});
    ui->cmbRepeat->setCurrentRow(defaultRepeat);
    ui->optIFR->setChecked(true);
    ui->txtPercent->setText(QStringLiteral("50"));
    ui->lblGMT->setText(toQString(gmtstring()));
}

void frmSchedEdit::offer(EditorRows rows) noexcept {
    const Lock lock(m_locked, true);
    ui->cmbAircraft->setRows(std::move(rows.aircraft));
    ui->cmbAircraft->setCurrentRow(0);
    ui->cmbAirport0->setRows(rows.airports);
    ui->cmbAirport1->setRows(std::move(rows.airports));
}

void frmSchedEdit::transfersched(const ScheduleRec& rec) noexcept {
    const Lock lock(m_locked, true);
    m_draft = {rec, {}};
    fillschedinfo();
    m_currentleg = 1;
    fillleglist(0);
    displayleginfo(m_currentleg);
}

void frmSchedEdit::fillschedinfo() noexcept {
    const StandardTrap trap{"sub fillschedinfo", module};
    const ScheduleRec& sched = m_draft.sched;
    ui->txtRego->setText(toQString(sched.tailnumber.text()));
    if (const int row = aircraftrow(ui->cmbAircraft->rows(), sched.acnum.text()); row >= 0) {
        ui->cmbAircraft->setCurrentRow(row);
    }
    ui->txtPercent->setText(toQString(generalNumber(val(sched.percent.text()))));
    const bool ifr = upper(sched.rules.text()) == "IFR";
    ui->optIFR->setChecked(ifr);
    ui->optVFR->setChecked(!ifr);
    trap(&frmSchedEdit::showperiod, this);
}

// Quirk: a change of row is a click even while locked, and so the period takes the row's text: 24Hr becomes 24h, but
// 6Hr on the default row stays.
void frmSchedEdit::showperiod() {
    if (m_draft.sched.weekly) {
        ui->cmbRepeat->setCurrentRow(ui->cmbRepeat->rowCount() - 1);
        return;
    }
    const double hours = val(m_draft.sched.period.text());
    const ListRows& rows = ui->cmbRepeat->rows();
    const auto found = std::ranges::find_if(rows, [&](const ListRow& row) { return row.itemData == hours; });
    if (found != rows.end()) {
        ui->cmbRepeat->setCurrentRow(static_cast<int>(found - rows.begin()));
    }
}

void frmSchedEdit::fillleglist(int selected) noexcept {
    const StandardTrap trap{"sub fillleglist", module};
    ui->List1->setRows(legrows(m_draft.sched));
    if (m_draft.sched.legcount > 0) {
        ui->List1->setCurrentRow(selected < ui->List1->rowCount() ? selected : 0);
    }
    trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
}

// What can't be shown is not told: of a leg that isn't there the boxes keep all they have, and a time that is
// none leaves its box alone.
void frmSchedEdit::displayleginfo(std::int16_t number) noexcept {
    const ScheduleDraft& draft = m_draft;
    if (!draft.sched.weekly) {
        ui->cmbDay0->setCurrentRow(0);
        ui->cmbDay0->setEnabled(false);
    }
    if (number != 0 && !draft.sched.legs.has(number)) {
        return;
    }
    const LegRec& leg = draft.leg(number);
    showairport(*ui->cmbAirport0, leg.fromicao.text());
    showairport(*ui->cmbAirport1, leg.toicao.text());
    ui->txtAltitude->setText(QString::number(leg.flightlevel));
    ui->txtFlightNum->setText(toQString(leg.flightnum.text()));
    ui->chkTNG->setChecked(leg.tng);
    ui->chkFix->setChecked(leg.atflag);
    if (draft.sched.weekly) {
        ui->cmbDay0->setCurrentRow(leg.depday + 1);
        ui->cmbDay1->setCurrentRow(leg.arrday + 1);
    }
    ui->chkUseRego->setChecked(leg.legtype.text() == "R");
    passOver([&] { ui->txtTime->setText(toQString(localtimetext(leg.dep.text()))); });
    passOver([&] { ui->txtETA->setText(toQString(localtimetext(leg.arr.text()))); });
    displaydistance(leg);
}

void frmSchedEdit::showairport(ComboBox& box, std::string_view icao) {
    if (const int row = rowstartingwith(box.rows(), icao); row >= 0) {
        box.setCurrentRow(row);
    }
}

void frmSchedEdit::displaydistance(const LegRec& leg) noexcept {
    const StandardTrap trap{"sub displaydistance", module};
    if (std::string text; trap.set(text, distancetext, leg)) {
        ui->lblDistance->setText(toQString(text));
    }
    const bool over = isoveraday(leg);
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, over ? faultColour(colours) : fineColour(colours));
    colours.setColor(QPalette::Window, colours.color(QPalette::Base));
    ui->lblDistance->setPalette(colours);
    QFont letters = font();
    letters.setBold(over); // not by the colour alone
    ui->lblDistance->setFont(letters);
    ui->lblDistance->setToolTip(over ? QStringLiteral("This leg is over 24 hours long!") : QString());
}

void frmSchedEdit::addlegtosched(bool atend) noexcept {
    const StandardTrap trap{"sub addlegtosched", module};
    vantor::addlegtosched(trap, m_draft, atend, ui->List1->rowCount(), ui->List1->currentRow(),
                          ui->chkTNG->isChecked());
    fillleglist(ui->List1->currentRow());
    ui->List1->setFocus();
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
    const std::string repeat = ui->cmbRepeat->text();
    const bool weekly = repeat == "WEEK";
    m_draft.sched.period = repeat;
    m_draft.sched.weekly = weekly;
    ui->cmbDay0->setEnabled(weekly);
    ui->cmbDay1->setEnabled(weekly);
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
    if (m_locked || !storeCurrentLeg()) {
        return; // after a time that is none the list shows the new row while the old leg stays in the frame
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
    changeairport(trap, m_draft, m_currentleg, index == 0 ? LegEnd::Departure : LegEnd::Destination,
                  extractcode(cmbAirport(index).text()));
    fillleglist(ui->List1->currentRow());
}

void frmSchedEdit::chkFix_click() noexcept {
    const bool fix = ui->chkFix->isChecked();
    ui->cmbDay1->setVisible(fix);
    ui->lblDay2->setVisible(fix);
    ui->txtETA->setEnabled(fix);
}

void frmSchedEdit::chkUseRego_click() noexcept {
    ui->txtFlightNum->setEnabled(!ui->chkUseRego->isChecked());
}

void frmSchedEdit::cmdDeleteLeg_Click() noexcept {
    if (ui->List1->rowCount() == 0) {
        return;
    }
    const int row = ui->List1->currentRow();
    deleteleg(m_draft.sched, row + 1);
    m_draft.leg0 = LegRec{};
    // Quirk: the row number stands as a leg number. The leg shown is two above the one deleted, leg 0 (blank) for the
    // first two rows, and the row made current is that of the leg after the one shown.
    m_currentleg = static_cast<std::int16_t>(std::max(row - 1, 0));
    const Lock lock(m_locked, true);
    displayleginfo(m_currentleg);
    fillleglist(m_currentleg);
    ui->List1->setFocus();
}

void frmSchedEdit::cmdFind_Click(int index) noexcept {
    ComboBox& box = index == 0 ? *ui->cmbAircraft : cmbAirport(index - 1);
    if (box.rowCount() > 0) {
        findstring(box, this);
    }
}

void frmSchedEdit::cmdOK_Click() noexcept {
    if (!storeCurrentLeg()) {
        return;
    }
    ScheduleRec& sched = m_draft.sched;
    sched.acnum = extractcode(ui->cmbAircraft->text());
    sched.tailnumber = textOf(ui->txtRego);
    sched.rules = ui->optIFR->isChecked() ? "IFR" : "VFR";
    sched.percent = textOf(ui->txtPercent) + "%";
    completelegs(sched);
    accept();
    passOver([] { host().pumpEvents(Pump::PaintAndTimers); });
}

void frmSchedEdit::cmdCancel_Click() noexcept {
    const StandardTrap trap{"sub cmdcancel_click", module};
    m_cancelled = true;
    QDialog::reject();
    trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
}

void frmSchedEdit::reject() {
    cmdCancel_Click();
}

} // namespace vantor
