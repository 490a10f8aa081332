#include "shell/rescue_offer.h"

#include "platform/code_page.h"
#include "shell/rescue_keeper.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace vantor {

RescueOffer::RescueOffer(QWidget* parent) : QWidget(parent), m_text(new QLabel(this)) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(4, 0, 4, 0);
    m_text->setObjectName(QStringLiteral("lblRescue"));
    row->addWidget(m_text);
    m_restore = new QPushButton(QStringLiteral("Restore"), this);
    m_restore->setObjectName(QStringLiteral("cmdRestore"));
    m_restore->setToolTip(QStringLiteral("Load the changes that were not saved"));
    connect(m_restore, &QPushButton::clicked, this, &RescueOffer::restoreClicked);
    row->addWidget(m_restore);
    row->addStretch();
    hide();
}

void RescueOffer::refresh(const RescueKeeper& keeper) {
    const auto& offer = keeper.offer();
    QString text;
    if (keeper.openElsewhere()) {
        text = QStringLiteral("This folder is open in another Vantor. ");
    }
    if (offer) {
        text += toQString("Unsaved changes of " + offer->note.when + " were kept.");
    }
    m_text->setText(text);
    m_restore->setVisible(offer.has_value());
    setVisible(!text.isEmpty());
}

} // namespace vantor
