#include "shell/fSHAREDAbout.h"

#include "foundation/host.h"
#include "foundation/native_path.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "shell/application_settings.h"
#include "shell/artwork.h"
#include "shell/documents.h"
#include "shell/frmLicences.h"
#include "ui_fSHAREDAbout.h"

#include <QFontInfo>
#include <QPointer>

namespace vantor {

namespace {

constexpr std::string_view moduleName = "fSHAREDAbout";

/// A link that the label shows as `text`.
QString link(const QString& address, const QString& text) {
    return QStringLiteral("<a href=\"%1\">%2</a>").arg(address.toHtmlEscaped(), text.toHtmlEscaped());
}

void visit(const QString& address) {
    const StandardTrap trap{"sub lbllink_click", moduleName};
    trap(websitevisit, fromQString(address));
}

} // namespace

fSHAREDAbout::fSHAREDAbout(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::fSHAREDAbout>()) {
    m_ui->setupUi(this);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->cmdLicences, &QPushButton::clicked, this, [this] {
        const StandardTrap trap{"sub cmdlicences_click", moduleName};
        frmLicences form(this);
        trap(&QDialog::exec, &form);
    });
    connect(m_ui->cmdOpenFolder, &QPushButton::clicked, this, [this] {
        const StandardTrap trap{"sub cmdopenfolder_click", moduleName};
        trap([&] {
            host().openFile(programFolder(), [box = QPointer(this)] {
                if (box) {
                    host().message("No program opens folders here. It is " + programFolder());
                }
            });
        });
    });
    connect(m_ui->cmdOpenLog, &QPushButton::clicked, this, &showLog);
    connect(m_ui->lblHomePage, &QLabel::linkActivated, this, &visit);
    connect(m_ui->lblProducts, &QLabel::linkActivated, this, &visit);
    Form_Load();
    m_ui->cmdOK->setFocus();
}

fSHAREDAbout::~fSHAREDAbout() = default;

void fSHAREDAbout::Form_Load() {
    const int line = fontMetrics().height();
    const int side = line * 6;
    m_ui->layoutForm->setContentsMargins(line, line, line, line);
    m_ui->layoutForm->setSpacing(line);
    m_ui->layoutAbout->setSpacing(line);
    m_ui->picIcon->setPixmap(applicationIcon().pixmap(QSize(side, side), devicePixelRatioF()));
    QFont font = m_ui->lblTitle->font();
    font.setPointSizeF(QFontInfo(font).pointSizeF() * 1.8);
    font.setBold(true);
    m_ui->lblTitle->setFont(font);
    m_ui->lblVersion->setText(toQString(appversion()));
    m_ui->lblMaker->setText(QStringLiteral(VANTOR_YEAR " Ostrevane Software"));
    const QString homePage = QStringLiteral(VANTOR_HOME_PAGE);
    m_ui->lblHomePage->setText(link(homePage, QStringLiteral("Vantor on the web")));
    m_ui->lblProducts->setText(
        link(homePage + QStringLiteral("/products"), QStringLiteral("Other products of Ostrevane Software")));
}

} // namespace vantor
