#include "schedule/frmFind.h"

#include "foundation/host.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "platform/combo_box.h"
#include "schedule/find_text.h"
#include "ui_frmFind.h"

#include <algorithm>
#include <utility>

namespace vantor {

namespace {
constexpr std::string_view module = "frmFind";
} // namespace

void findstring(ComboBox& combo, QWidget* parent) noexcept {
    const StandardTrap trap{"sub findstring", "modFindString"};
    trap([&] {
        frmFind form(parent);
        trap([&] {
            ListRows rows = combo.rows();
            rows.emplace_back(); // one past the last row: the search counts on the empty row
            form.cmbList().setRows(std::move(rows));
        });
        trap([&] { form.cmbList().setCurrentRow(std::max(combo.currentRow(), 0)); });
        trap([&] { form.exec(); });
        trap([&] {
            if (form.cmbList().currentRow() >= 0) {
                combo.setCurrentRow(form.cmbList().currentRow());
            }
        });
    });
}

frmFind::frmFind(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmFind>()) {
    ui->setupUi(this);
    if (parent != nullptr) {
        setWindowIcon(parent->window()->windowIcon());
    }
    connect(ui->cmdFirst, &QPushButton::clicked, this, &frmFind::cmdFirst_Click);
    connect(ui->cmdNext, &QPushButton::clicked, this, &frmFind::cmdNext_Click);
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmFind::cmdOK_Click);
    connect(ui->cmdExit, &QPushButton::clicked, this, &frmFind::cmdExit_Click);
    ui->txtSearchString->setFocus();
}

frmFind::~frmFind() = default;

ComboBox& frmFind::cmbList() const {
    return *ui->cmbList;
}

void frmFind::search() noexcept {
    const StandardTrap trap{"sub findtext", module};
    trap([&] {
        switch (findtext(ui->cmbList->rows(), fromQString(ui->txtSearchString->text()), m_lastfound)) {
        case FindResult::Found:
            ui->cmbList->setCurrentRow(m_lastfound);
            break;
        case FindResult::NoMore:
            host().message("No more matches");
            break;
        case FindResult::AtEnd:
            break;
        }
    });
}

void frmFind::cmdFirst_Click() noexcept {
    m_lastfound = -1;
    search();
}

void frmFind::cmdNext_Click() noexcept {
    search();
}

void frmFind::cmdOK_Click() noexcept {
    const StandardTrap trap{"sub cmdok_click", module};
    trap([&] { accept(); });
    trap([&] { host().pumpEvents(Pump::PaintAndTimers); });
}

void frmFind::cmdExit_Click() noexcept {
    const StandardTrap trap{"sub cmdexit_click", module};
    trap([&] { ui->cmbList->setCurrentRow(-1); });
    trap([&] { QDialog::reject(); });
    trap([&] { host().pumpEvents(Pump::PaintAndTimers); });
}

void frmFind::reject() {
    cmdExit_Click();
}

} // namespace vantor
