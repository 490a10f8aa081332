#include "schedule/frmFind.h"

#include "foundation/host.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "platform/combo_box.h"
#include "schedule/find_text.h"
#include "ui_frmFind.h"

#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace vantor {

namespace {
constexpr std::string_view module = "frmFind";
} // namespace

void findstring(ComboBox& combo, QWidget* parent) noexcept {
    const StandardTrap trap{"sub findstring", "modFindString"};
    trap([&] { // one trap for all steps: without its rows there is nothing to ask
        frmFind form(combo, parent);
        trap(&frmFind::exec, &form);
        if (const std::optional<int> row = form.found()) {
            combo.setCurrentRow(*row);
        }
    });
}

frmFind::frmFind(const ComboBox& searched, QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmFind>()) {
    ui->setupUi(this);
    if (parent != nullptr) {
        setWindowIcon(parent->window()->windowIcon());
    }
    ListRows rows = searched.rows();
    rows.emplace_back(); // one past the last row: the search counts on the empty row
    ui->cmbList->setRows(std::move(rows));
    ui->cmbList->setCurrentRow(std::max(searched.currentRow(), 0));
    connect(ui->cmdFirst, &QPushButton::clicked, this, &frmFind::cmdFirst_Click);
    connect(ui->cmdNext, &QPushButton::clicked, this, &frmFind::cmdNext_Click);
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmFind::cmdOK_Click);
    connect(ui->cmdExit, &QPushButton::clicked, this, &frmFind::cmdExit_Click);
    ui->txtSearchString->setFocus();
}

frmFind::~frmFind() = default;

std::optional<int> frmFind::found() const {
    const int row = ui->cmbList->currentRow();
    return row >= 0 ? std::optional(row) : std::nullopt;
}

void frmFind::search() noexcept {
    const StandardTrap trap{"sub findtext", module};
    m_sought = ui->txtSearchString->text();
    trap([&] {
        switch (findtext(ui->cmbList->rows(), fromQString(*m_sought), m_lastfound)) {
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

void frmFind::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || focusWidget() != ui->txtSearchString) {
        QDialog::keyPressEvent(event);
    } else if (m_sought == ui->txtSearchString->text()) {
        cmdNext_Click();
    } else {
        cmdFirst_Click();
    }
}

void frmFind::cmdOK_Click() noexcept {
    const StandardTrap trap{"sub cmdok_click", module};
    accept();
    trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
}

void frmFind::cmdExit_Click() noexcept {
    const StandardTrap trap{"sub cmdexit_click", module};
    ui->cmbList->setCurrentRow(-1);
    QDialog::reject();
    trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
}

void frmFind::reject() {
    cmdExit_Click();
}

} // namespace vantor
