#include "shell/frmLicences.h"

#include "foundation/trap.h"
#include "platform/code_page.h"
#include "shell/documents.h"
#include "ui_frmLicences.h"

namespace vantor {

frmLicences::frmLicences(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmLicences>()) {
    m_ui->setupUi(this);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    const StandardTrap trap{"sub form_load", "frmLicences"};
    trap([&] {
        std::vector<Licence> texts = licences();
        for (const Licence& licence : texts) {
            m_ui->lstLicences->addRow(fromQString(licence.name));
        }
        connect(m_ui->lstLicences, &ListBox::rowClicked, this, [this, texts = std::move(texts)] {
            const int row = m_ui->lstLicences->currentRow();
            if (row >= 0) {
                m_ui->txtLicence->setPlainText(texts[static_cast<std::size_t>(row)].text);
            }
        });
        m_ui->lstLicences->setCurrentRow(0);
    });
    m_ui->lstLicences->setFocus();
}

frmLicences::~frmLicences() = default;

} // namespace vantor
