#include "shell/frmSplash.h"

#include "platform/code_page.h"
#include "platform/colours.h"
#include "platform/picture_box.h"
#include "shell/application_settings.h"
#include "shell/artwork.h"
#include "ui_frmSplash.h"

#include <QFontInfo>
#include <QScreen>

namespace vantor {

namespace {
/// How much narrower than the window the bar is, in twips.
constexpr double barIndent = 200;
} // namespace

frmSplash::frmSplash(QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint), m_ui(std::make_unique<Ui::frmSplash>()) {
    m_ui->setupUi(this);
    setAttribute(Qt::WA_ShowWithoutActivating);
    Form_Load();
}

frmSplash::~frmSplash() = default;

Canvas* frmSplash::progress() {
    return m_ui->picProgress;
}

void frmSplash::Form_Load() {
    QFont font = m_ui->lblTitle->font();
    font.setPointSizeF(QFontInfo(font).pointSizeF() * 1.7);
    font.setBold(true);
    m_ui->lblTitle->setFont(font);
    // The picture behind the title is dark in every palette.
    QPalette light = m_ui->lblTitle->palette();
    light.setColor(QPalette::WindowText, Qt::white);
    m_ui->lblTitle->setPalette(light);
    m_ui->picProgress->setPalette(progressPalette(m_ui->picProgress->palette()));
    m_ui->lblTitle->setText(QStringLiteral("Vantor ") + toQString(appversion()));
    const QSize size = splashSize(fontMetrics());
    m_ui->Picture1->setFixedSize(size);
    m_ui->Picture1->setPicture(splashPicture(size, devicePixelRatioF()));
    m_ui->picProgress->setFixedHeight(fontMetrics().height() * 3 / 2);
    const int indent = qRound(barIndent / twipsPerPixel);
    const int left = indent / 2;
    m_ui->Picture1->layout()->setContentsMargins(left, left, indent - left, left);
    adjustSize();
}

void frmSplash::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    centre();
}

void frmSplash::centre() {
    const bool overOwner = parentWidget() != nullptr && parentWidget()->isVisible();
    const QRect area = overOwner ? parentWidget()->window()->frameGeometry() : screen()->availableGeometry();
    move(area.center() - rect().center());
}

} // namespace vantor
